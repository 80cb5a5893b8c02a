#pragma once

#include <QAccessibleWidget>

namespace lookfar::desktop {

class LabelTabStop;
class StatusText;
class UpDownArrows;

/// What assistive technology reads of a drawn label that the keyboard can reach: a button or a
/// link that can be pressed, and whether a part of the window that it opens and closes is open.
class LabelTabStopInterface : public QAccessibleWidget {
  public:
    explicit LabelTabStopInterface(LabelTabStop& stop);

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    LabelTabStop& stop_;
};

/// What assistive technology reads of a status bar: the whole text.
class StatusTextInterface : public QAccessibleWidget {
  public:
    explicit StatusTextInterface(StatusText& text);
};

/// What assistive technology reads of a pair of arrows: a value between two limits.
class UpDownInterface : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit UpDownInterface(UpDownArrows& arrows);

    void* interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override { return 1; }

  private:
    UpDownArrows& arrows_;
};

} // namespace lookfar::desktop
