#include "desktop/window/window_view.h"

#include "desktop/native/hint.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/popup_menus.h"
#include "desktop/style/fonts.h"
#include "desktop/style/texts.h"
#include "desktop/window/task_bars.h"
#include "desktop/window/windows.h"
#include "runtime/form.h"
#include "runtime/scoped_value.h"

#include <QLineEdit>
#include <QScreen>
#include <QWindow>

#include <chrono>
#include <utility>

namespace lookfar::desktop {

WindowView::WindowView(Form& form, Windows& windows, const QIcon& icon)
    : QWidget(nullptr, window_flags(form)),
      form_(&form),
      windows_(windows),
      drawn_(form),
      mouse_(form, drawn_, windows.actions()),
      frame_(form, *this),
      natives_(form, windows.actions(), *this) {
    setFont(screen_font({}));
    setMouseTracking(true);
    // The drawn controls fill every pixel.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(shown_text(form.Design.AccessibleName));
    apply_icon(icon);
    bind_keys();
    setAcceptDrops(form.AddressGiven.is_connected());
    for (QTimer* const timer : {&coming_up_, &coming_forward_, &update_, &prepared_, &showing_})
        timer->setSingleShot(true);
    constexpr std::chrono::seconds longest_coming_up(2);
    coming_up_.setInterval(longest_coming_up);
    coming_up_.callOnTimeout([this] { windows_.synchronise_later(); });
    constexpr std::chrono::milliseconds longest_coming_forward(300);
    coming_forward_.setInterval(longest_coming_forward);
    coming_forward_.callOnTimeout([this] { windows_.synchronise_later(); });
    // Ticks of a millisecond that the changes ask for come first.
    constexpr std::chrono::milliseconds behind_the_ticks(3);
    update_.setInterval(behind_the_ticks);
    update_.callOnTimeout(this, &WindowView::prepare_update, Qt::QueuedConnection);
    prepared_.callOnTimeout(
        this, [this] { update(std::exchange(to_update_, {})); }, Qt::QueuedConnection);
    showing_.setInterval(behind_the_ticks);
    showing_.callOnTimeout([this] { show_now(); });
}

void WindowView::apply_icon(const QIcon& icon) {
    if (form_ && form_->Design.HasIcon)
        setWindowIcon(icon);
}

void WindowView::synchronise_window() {
    setWindowTitle(shown_text(form_->Caption.get()));
    const bool was_live = std::exchange(is_live_, form_->Visible);
    if (!is_live_)
        return;
    frame_.apply(windows_.screen());
    apply_pointer();
    if (!was_live)
        come_up();
}

void WindowView::come_up() {
    for (Control* const control : form_->controls())
        synchronise_control(*control);
    if (isVisible() || is_coming_up())
        return;
    watch_screens();
    coming_up_.start();
    showing_.start();
}

void WindowView::show_now() {
    if (!is_live_)
        return coming_up_.stop();
    if (!form_->Design.ShowInTaskbar)
        keep_out_of_task_bars(*this);
    prepare_look();
    show();
    natives_.restore_focus();
    come_forward();
}

void WindowView::prepare_look() {
    // A window over the whole screen would take too long, and what it covers is no gap.
    if (!windowState().testFlag(Qt::WindowFullScreen)) {
        const ScopedValue preview(is_previewed_, true);
        first_look_.give(*this);
        return;
    }
    drawn_.prepare_pictures(rect(), palette(), devicePixelRatioF());
}

void WindowView::watch_screens() {
    if (screen_watch_)
        return;
    winId(); // makes the window's handle
    watch_screen();
    connect(windowHandle(), &QWindow::screenChanged, this, [this] {
        watch_screen();
        tell_of_screen();
    });
}

void WindowView::watch_screen() {
    disconnect(screen_watch_);
    screen_watch_ =
        connect(screen(), &QScreen::geometryChanged, this, [this] { tell_of_screen(); });
}

void WindowView::tell_of_screen() {
    if (is_live_)
        windows_.actions().deliver(*form_, [this] { form_->ScreenChange.raise(); });
}

bool WindowView::is_main_window() const {
    return form_ && form_->Design.IsMainWindow;
}

bool WindowView::covers_screen() const {
    return isVisible() && isFullScreen();
}

bool WindowView::is_coming_up() const {
    return coming_up_.isActive() && form_->Visible;
}

void WindowView::come_forward() {
    if (showing_.isActive())
        return;
    raise();
    activateWindow();
    if (isVisible() && !isActiveWindow())
        coming_forward_.start();
}

bool WindowView::is_coming_forward() const {
    return coming_forward_.isActive() && form_->Visible;
}

bool WindowView::is_leaving() const {
    return form_ && !form_->Visible && isVisible();
}

void WindowView::synchronise(Control& control) {
    if (is_live_)
        synchronise_control(control);
}

void WindowView::synchronise_control(Control& control) {
    update_soon(drawn_.synchronise(control));
    natives_.synchronise(control);
    windows_.ControlShown.raise(*this, control);
}

void WindowView::show_edited_pictures() {
    if (is_live_)
        update_soon(drawn_.show_edited_pictures());
}

void WindowView::apply_pointer() {
    const bool is_busy = form_->MousePointer == MousePointer::hourglass;
    const QCursor pointer(is_busy ? Qt::WaitCursor : Qt::ArrowCursor);
    if (cursor().shape() == pointer.shape())
        return;
    setCursor(pointer);
    for (auto* const entry : findChildren<QLineEdit*>())
        entry->setCursor(is_busy ? Qt::WaitCursor : Qt::IBeamCursor);
}

void WindowView::update_soon(const QRegion& region) {
    to_update_ += region;
    if (!to_update_.isEmpty() && !update_.isActive())
        update_.start();
}

void WindowView::prepare_update() {
    if (is_live_ && windowHandle()->isExposed())
        drawn_.prepare_pictures(to_update_, palette(), devicePixelRatioF());
    prepared_.start(0);
}

void WindowView::forget(const Element& element) {
    natives_.forget(element);
    drawn_.forget(element);
}

void WindowView::release() {
    form_ = nullptr;
    is_live_ = false;
    menu_.reset();
    natives_.clear();
}

void WindowView::show_hint(const Control& control, const QString& text) {
    QWidget* const widget = natives_.widget_of(control);
    if (!widget)
        return;
    if (hint_)
        hint_->hide();
    hint_ = owned_by_qt<Hint>(text, *widget, *this, drawn_.captions());
    windows_.HintShown.raise(*hint_);
}

void WindowView::pop_up(const PopupMenu& menu, const MenuItem* default_entry) {
    menu_ = make_popup_menu(menu, default_entry, windows_.actions(), *this);
    // Where the pointer is while it is elsewhere, Wayland tells nobody.
    (*menu_)->popup(underMouse() ? QCursor::pos() : geometry().center());
}

std::span<Control* const> WindowView::controls() const {
    return form_ ? form_->controls() : std::span<Control* const>();
}

} // namespace lookfar::desktop
