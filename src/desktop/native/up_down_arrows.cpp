#include "desktop/native/up_down_arrows.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

#include <QAccessible>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

UpDownArrows::UpDownArrows(const UpDown& control, QWidget& window)
    : QWidget(&window),
      minimum_(control.Design.Min),
      maximum_(control.Design.Max),
      value_(control.Value) {
    QVBoxLayout& column = *owned_by_qt<QVBoxLayout>(this);
    column.setContentsMargins(0, 0, 0, 0);
    column.setSpacing(0);
    const QString name = shown_text(control.Design.AccessibleName);
    setAccessibleName(name);
    add_arrow(Qt::UpArrow, name + QStringLiteral(" +"), +1);
    add_arrow(Qt::DownArrow, name + QStringLiteral(" -"), -1);
}

void UpDownArrows::add_arrow(Qt::ArrowType type, const QString& name, int direction) {
    QToolButton& arrow = *owned_by_qt<QToolButton>(this);
    arrow.setArrowType(type);
    arrow.setAutoRepeat(true);
    arrow.setFocusPolicy(Qt::NoFocus);
    arrow.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    arrow.setAccessibleName(name);
    connect(&arrow, &QToolButton::clicked, this, [this, direction] { Q_EMIT stepped(direction); });
    layout()->addWidget(&arrow);
}

void UpDownArrows::synchronise(const UpDown& control) {
    place(*this, control);
    const long value = control.Value;
    if (std::exchange(value_, value) == value)
        return;
    QAccessibleValueChangeEvent event(this, QVariant::fromValue(value));
    QAccessible::updateAccessibility(&event);
}

NativeControl make_up_down_arrows(UpDown& control, UserActions& actions, QWidget& window) {
    UpDownArrows& arrows = *owned_by_qt<UpDownArrows>(control, window);
    NativeControl native{.widget = TiedWidget<QWidget>(arrows),
                         .synchronise = [&arrows, &control] { arrows.synchronise(control); },
                         .tab_index = control.Design.TabIndex};
    QObject* const tie = native.widget.tie();
    QObject::connect(&arrows, &UpDownArrows::stepped, tie, [&control, &actions](int direction) {
        actions.deliver(control, [&control, direction] { control.step(direction); });
    });
    QObject::connect(&arrows, &UpDownArrows::value_wanted, tie, [&control, &actions](long value) {
        actions.deliver(control, [&control, value] {
            control.Value = std::clamp(value, control.Design.Min, control.Design.Max);
        });
    });
    return native;
}

} // namespace lookfar::desktop
