#include "desktop/accessible/native_interfaces.h"

#include "desktop/native/label_tab_stop.h"
#include "desktop/native/status_text.h"
#include "desktop/native/up_down_arrows.h"

namespace lookfar::desktop {

LabelTabStopInterface::LabelTabStopInterface(LabelTabStop& stop)
    : QAccessibleWidget(&stop, stop.is_link() ? QAccessible::Link : QAccessible::Button),
      stop_(stop) {}

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
    const UpDown* const control = arrows_.control();
    return control ? QVariant::fromValue(control->Value.get()) : QVariant();
}

void UpDownInterface::setCurrentValue(const QVariant& value) {
    arrows_.set_value(static_cast<long>(value.toLongLong()));
}

QVariant UpDownInterface::maximumValue() const {
    const UpDown* const control = arrows_.control();
    return control ? QVariant::fromValue(control->Max) : QVariant();
}

QVariant UpDownInterface::minimumValue() const {
    const UpDown* const control = arrows_.control();
    return control ? QVariant::fromValue(control->Min) : QVariant();
}

} // namespace lookfar::desktop
