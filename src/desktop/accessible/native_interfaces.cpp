#include "desktop/accessible/native_interfaces.h"

#include "desktop/native/label_tab_stop.h"
#include "desktop/native/status_text.h"
#include "desktop/native/up_down_arrows.h"

namespace lookfar::desktop {

LabelTabStopInterface::LabelTabStopInterface(LabelTabStop& stop)
    : QAccessibleWidget(&stop,
                        stop.role() == LabelRole::link ? QAccessible::Link : QAccessible::Button),
      stop_(stop) {}

QAccessible::State LabelTabStopInterface::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const auto is_open = stop_.is_open();
    state.expandable = is_open.has_value();
    state.expanded = is_open == true;
    state.collapsed = is_open == false;
    return state;
}

QStringList LabelTabStopInterface::actionNames() const {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void LabelTabStopInterface::doAction(const QString& name) {
    if (name == pressAction())
        stop_.click();
    else
        QAccessibleWidget::doAction(name);
}

StatusTextInterface::StatusTextInterface(StatusText& text)
    : QAccessibleWidget(&text, QAccessible::StatusBar) {}

UpDownInterface::UpDownInterface(UpDownArrows& arrows)
    : QAccessibleWidget(&arrows, QAccessible::SpinBox), arrows_(arrows) {}

void* UpDownInterface::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant UpDownInterface::currentValue() const {
    return QVariant::fromValue(arrows_.value());
}

void UpDownInterface::setCurrentValue(const QVariant& value) {
    Q_EMIT arrows_.value_wanted(static_cast<long>(value.toLongLong()));
}

QVariant UpDownInterface::maximumValue() const {
    return QVariant::fromValue(arrows_.maximum());
}

QVariant UpDownInterface::minimumValue() const {
    return QVariant::fromValue(arrows_.minimum());
}

} // namespace lookfar::desktop
