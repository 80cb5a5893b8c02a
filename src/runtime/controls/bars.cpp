#include "runtime/controls/bars.h"

#include "runtime/failure.h"

#include <algorithm>

namespace lookfar {

StatusBar::StatusBar(Form& owner, const StatusBarDesign& design)
    : ControlOf(owner, design), Text(*this, {}) {}

UpDown::UpDown(Form& owner, const UpDownDesign& design)
    : ControlOf(owner, design),
      Value(*this, design.Value,
            {.refuse =
                 [this](const long& value) {
                     if (value < Design.Min || value > Design.Max)
                         throw Failure(FailureKind::invalid_property_value,
                                       "The value lies outside the limits of the arrows.");
                 },
             .changed = [this] { Change.raise(); }}) {}

void UpDown::step(int direction) {
    Value = std::clamp(Value + direction, Design.Min, Design.Max);
}

} // namespace lookfar
