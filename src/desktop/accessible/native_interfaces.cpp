#include "desktop/accessible/native_interfaces.h"

#include "desktop/native/label_tab_stop.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/status_text.h"
#include "desktop/native/up_down_arrows.h"

#include <QAccessibleWidget>

namespace lookfar::desktop {

namespace {

/// A button or a link that can be pressed, and whether a part of the window that it opens and
/// closes is open.
class LabelTabStopInterface : public QAccessibleWidget {
  public:
    explicit LabelTabStopInterface(LabelTabStop& stop)
        : QAccessibleWidget(&stop, stop.role() == LabelRole::link ? QAccessible::Link
                                                                  : QAccessible::Button),
          stop_(stop) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const auto is_open = stop_.is_open();
        state.expandable = is_open.has_value();
        state.expanded = is_open == true;
        state.collapsed = is_open == false;
        return state;
    }

    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction())
            stop_.click();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    LabelTabStop& stop_;
};

/// The whole text.
class StatusTextInterface : public QAccessibleWidget {
  public:
    explicit StatusTextInterface(StatusText& text)
        : QAccessibleWidget(&text, QAccessible::StatusBar) {}
};

/// A value between two limits.
class UpDownInterface : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit UpDownInterface(UpDownArrows& arrows)
        : QAccessibleWidget(&arrows, QAccessible::SpinBox), arrows_(arrows) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return QVariant::fromValue(arrows_.value()); }
    void setCurrentValue(const QVariant& value) override {
        Q_EMIT arrows_.value_wanted(static_cast<long>(value.toLongLong()));
    }
    QVariant maximumValue() const override { return QVariant::fromValue(arrows_.maximum()); }
    QVariant minimumValue() const override { return QVariant::fromValue(arrows_.minimum()); }
    QVariant minimumStepSize() const override { return 1; }

  private:
    UpDownArrows& arrows_;
};

} // namespace

QAccessibleInterface* make_native_interface(QObject* object) {
    if (auto* const stop = dynamic_cast<LabelTabStop*>(object))
        return owned_by_qt<LabelTabStopInterface>(*stop);
    if (auto* const text = dynamic_cast<StatusText*>(object))
        return owned_by_qt<StatusTextInterface>(*text);
    if (auto* const arrows = dynamic_cast<UpDownArrows*>(object))
        return owned_by_qt<UpDownInterface>(*arrows);
    return nullptr;
}

} // namespace lookfar::desktop
