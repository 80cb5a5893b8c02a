#include "desktop/window/window_view.h"

#include "desktop/native/popup_menus.h"
#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_frame.h"
#include "desktop/window/window_observer.h"
#include "desktop/window/windows.h"
#include "runtime/form.h"

#include <QLineEdit>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <ranges>
#include <utility>
#include <vector>

namespace lookfar::desktop {

namespace {

bool takes_focus_by_click(const NativeControl* native) {
    return native->widget->focusPolicy() & Qt::ClickFocus;
}

} // namespace

WindowView::WindowView(Form& form, Windows& windows, const QIcon& icon)
    : QWidget(nullptr, window_flags(form)),
      form_(&form),
      windows_(windows),
      drawn_(form),
      mouse_(form, drawn_, windows.actions()) {
    setFont(screen_font({}));
    setMouseTracking(true);
    // The canvas fills every pixel.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(shown_text(form.AccessibleName));
    if (form.HasIcon)
        setWindowIcon(icon);
    make_native_controls();
    set_tab_order();
}

/// Later children lie over earlier ones, so the hindmost control comes first.
void WindowView::make_native_controls() {
    for (Control* const control : std::views::reverse(form_->controls())) {
        auto native = make_native_control(*control, windows_.actions(), *this);
        if (!native)
            continue;
        native->widget->setAttribute(Qt::WA_NoMousePropagation);
        natives_.emplace(control, *std::move(native));
    }
}

void WindowView::set_tab_order() {
    std::vector<const NativeControl*> order;
    for (const NativeControl& native : std::views::values(natives_))
        order.push_back(&native);
    std::ranges::sort(order, {}, &NativeControl::tab_index);
    const auto first = std::ranges::find_if(order, takes_focus_by_click);
    if (first != order.end())
        focus_at_show_ = &*(*first)->widget;
    QWidget* previous = this;
    for (const NativeControl* const native : order) {
        QWidget* const next = &*native->widget;
        setTabOrder(previous, next);
        previous = next;
    }
}

void WindowView::set_focus(const Control& control) {
    focus_at_show_ = widget_of(control);
    if (focus_at_show_)
        focus_at_show_->setFocus(Qt::OtherFocusReason);
}

/// A window that comes up gives the keyboard to the control that it was set to last, since the
/// toolkit may have moved it on when the window was hidden.
void WindowView::take_focus() {
    if (focus_at_show_)
        focus_at_show_->setFocus(Qt::OtherFocusReason);
}

void WindowView::synchronise_window() {
    setWindowTitle(shown_text(form_->Caption.get()));
    if (!form_->Visible) {
        hide();
        return;
    }
    take_size();
    take_position();
    take_pointer();
    take_state();
    if (isVisible())
        return;
    synchronise_controls();
    show();
    take_focus();
}

void WindowView::synchronise_controls() {
    for (Control* const control : form_->controls())
        synchronise_control(*control);
}

void WindowView::synchronise(Control& control) {
    if (isVisible())
        synchronise_control(control);
}

void WindowView::synchronise_control(Control& control) {
    update(drawn_.synchronise(control));
    if (const auto native = natives_.find(&control); native != natives_.end())
        native->second.synchronise();
    windows_.observer().control_shown(*this, control);
}

void WindowView::take_edited_pictures() {
    if (isVisible())
        update(drawn_.take_edited_pictures());
}

void WindowView::take_pointer() {
    const bool is_busy = form_->MousePointer == MousePointer::hourglass;
    const QCursor pointer(is_busy ? Qt::WaitCursor : Qt::ArrowCursor);
    if (cursor().shape() == pointer.shape())
        return;
    setCursor(pointer);
    for (auto* const entry : findChildren<QLineEdit*>())
        entry->setCursor(is_busy ? Qt::WaitCursor : Qt::IBeamCursor);
}

void WindowView::take_size() {
    const QSize size = client_size(*form_);
    if (!covers_screen(*form_, screen()->size())) {
        setFixedSize(size);
        return;
    }
    // Window managers keep a window of fixed size from covering the task bars.
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    resize(size);
}

void WindowView::take_position() {
    if (form_->CentredOnScreen && !std::exchange(was_centred_, true))
        centre_on_screen();
    const QPoint wanted = window_position(*form_);
    if (std::exchange(position_, wanted) != wanted)
        move(wanted);
}

void WindowView::centre_on_screen() {
    QRect place(QPoint(), client_size(*form_));
    place.moveCenter(screen()->geometry().center());
    form_->Left.follow(to_twips(place.left()));
    form_->Top.follow(to_twips(place.top()));
}

void WindowView::take_state() {
    const Qt::WindowStates wanted = window_states(*form_, screen()->size());
    if (windowState() != wanted)
        setWindowState(wanted);
}

void WindowView::forget(const Element& element) {
    natives_.erase(&element);
    drawn_.forget(element);
}

void WindowView::release() {
    form_ = nullptr;
    menu_.reset();
    natives_.clear();
}

void WindowView::pop_up(const PopupMenu& menu, const MenuItem* default_entry) {
    menu_ = make_popup_menu(menu, default_entry, windows_.actions(), *this);
    const QPoint pointer = QCursor::pos();
    const bool is_over_window = geometry().contains(pointer);
    (*menu_)->popup(is_over_window ? pointer : geometry().center());
}

std::vector<DrawnControl> WindowView::readable_controls() const {
    return form_ ? drawn_.readable() : std::vector<DrawnControl>();
}

std::optional<DrawnControl> WindowView::readable_control(const Control& control) const {
    const auto readable = readable_controls();
    const auto own = std::ranges::find(readable, &control, &DrawnControl::control);
    return own == readable.end() ? std::nullopt : std::optional(*own);
}

QWidget* WindowView::widget_of(const Control& control) const {
    const auto native = natives_.find(&control);
    return native == natives_.end() ? nullptr : &*native->second.widget;
}

} // namespace lookfar::desktop
