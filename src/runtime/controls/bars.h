#pragma once

#include "runtime/controls/control.h"

#include <string>

namespace lookfar {

/// The design values of a status bar.
struct StatusBarDesign {
    Bounds At = {};
    bool Visible = true;
    int TabIndex = 0;
};

/// A bar with one text.
class StatusBar : public ControlOf<StatusBar, StatusBarDesign> {
  public:
    StatusBar(Form& owner, const StatusBarDesign& design);

    Property<std::string> Text;
};

/// The design values of a pair of arrows.
struct UpDownDesign {
    Bounds At = {};
    bool Visible = true;
    long Value = 0;
    long Min = 0;
    long Max = 10;
    int TabIndex = 0;
    std::string AccessibleName = {};
};

/// An up and a down arrow that step a value between two limits. Values outside are refused. A
/// change of the value raises `Change`.
class UpDown : public ControlOf<UpDown, UpDownDesign> {
  public:
    UpDown(Form& owner, const UpDownDesign& design);

    /// A press of an arrow: +1 for up, -1 for down. Stops at the limits.
    void step(int direction);

    Property<long> Value;
    Event<> Change;
};

} // namespace lookfar
