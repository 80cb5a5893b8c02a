#pragma once

#include "runtime/controls/control.h"

#include <string>

namespace lookfar {

/// The design values of a status bar.
struct StatusBarDesign {
    Bounds At = {};
    int TabIndex = 0;
};

/// A bar with one text.
class StatusBar : public BoxControl {
  public:
    StatusBar(Form& owner, const StatusBarDesign& design);

    void accept(ControlVisitor& visitor) override;

    Property<std::string> Text;
    const int TabIndex;
};

/// The design values of a pair of arrows.
struct UpDownDesign {
    Bounds At = {};
    long Value = 0;
    long Min = 0;
    long Max = 10;
    int TabIndex = 0;
    std::string AccessibleName = {};
};

/// An up and a down arrow that step a value between two limits. Values outside are refused. A
/// change of the value raises `Change`.
class UpDown : public BoxControl {
  public:
    UpDown(Form& owner, const UpDownDesign& design);

    void accept(ControlVisitor& visitor) override;

    /// A press of an arrow: +1 for up, -1 for down. Stops at the limits.
    void step(int direction);

    const long Min;
    const long Max;
    Property<long> Value;
    Event<> Change;

    const int TabIndex;
    const std::string AccessibleName;
};

} // namespace lookfar
