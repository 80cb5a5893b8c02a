#include "desktop/window/native_children.h"

#include "runtime/form.h"

#include <QApplication>
#include <QPushButton>

#include <algorithm>
#include <ranges>
#include <utility>
#include <vector>

namespace lookfar::desktop {

namespace {

bool gets_focus_by_click(const NativeControl* native) {
    return native->widget->focusPolicy() & Qt::ClickFocus;
}

} // namespace

NativeChildren::NativeChildren(const Form& form, UserActions& actions, QWidget& window)
    : window_(window) {
    make(form, actions);
    set_tab_order();
    QObject::connect(qApp, &QApplication::focusChanged, &ring_,
                     [this](QWidget*, QWidget* now) { move_ring(now); });
}

void NativeChildren::move_ring(QWidget* widget) {
    const bool is_ours = widget && widget->parentWidget() == &window_;
    ring_.setWidget(is_ours ? widget : nullptr);
}

/// Later children lie over earlier ones, so the hindmost control comes first.
void NativeChildren::make(const Form& form, UserActions& actions) {
    for (Control* const control : std::views::reverse(form.controls())) {
        auto native = make_native_control(*control, actions, window_);
        if (!native)
            continue;
        native->widget->setAttribute(Qt::WA_NoMousePropagation);
        natives_.emplace(control, *std::move(native));
    }
}

void NativeChildren::set_tab_order() {
    std::vector<const NativeControl*> order;
    for (const NativeControl& native : std::views::values(natives_))
        order.push_back(&native);
    std::ranges::sort(order, {}, &NativeControl::tab_index);
    const auto first = std::ranges::find_if(order, gets_focus_by_click);
    if (first != order.end())
        focus_at_show_ = &*(*first)->widget;
    QWidget* previous = &window_;
    for (const NativeControl* const native : order) {
        QWidget* const next = &*native->widget;
        QWidget::setTabOrder(previous, next);
        previous = next;
    }
}

void NativeChildren::synchronise(const Control& control) {
    if (const auto native = natives_.find(&control); native != natives_.end())
        native->second.synchronise();
}

QWidget* NativeChildren::widget_of(const Control& control) const {
    const auto native = natives_.find(&control);
    return native == natives_.end() ? nullptr : &*native->second.widget;
}

void NativeChildren::set_focus(const Control& control) {
    focus_at_show_ = widget_of(control);
    restore_focus();
}

void NativeChildren::restore_focus() {
    if (focus_at_show_)
        focus_at_show_->setFocus(Qt::OtherFocusReason);
}

void NativeChildren::press_button_by_enter() {
    auto* button = qobject_cast<QPushButton*>(window_.focusWidget());
    if (!button)
        button = default_button();
    if (button)
        button->click();
}

QPushButton* NativeChildren::default_button() const {
    for (const NativeControl& native : std::views::values(natives_)) {
        auto* const button = qobject_cast<QPushButton*>(&*native.widget);
        if (button && button->isDefault() && button->isVisible())
            return button;
    }
    return nullptr;
}

} // namespace lookfar::desktop
