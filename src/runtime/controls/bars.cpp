#include "runtime/controls/bars.h"

#include "runtime/controls/visitor.h"
#include "runtime/failure.h"

#include <algorithm>

namespace lookfar {

StatusBar::StatusBar(Form& owner, const StatusBarDesign& design)
    : BoxControl(owner, design.At, true), Text(*this, {}), TabIndex(design.TabIndex) {}

void StatusBar::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

UpDown::UpDown(Form& owner, const UpDownDesign& design)
    : BoxControl(owner, design.At, true),
      Min(design.Min),
      Max(design.Max),
      Value(*this, design.Value,
            {.refuse =
                 [this](const long& value) {
                     if (value < Min || value > Max)
                         throw Failure(FailureKind::invalid_property_value,
                                       "The value lies outside the limits of the arrows.");
                 },
             .changed = [this] { Change.raise(); }}),
      TabIndex(design.TabIndex),
      AccessibleName(design.AccessibleName) {}

void UpDown::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void UpDown::step(int direction) {
    Value = std::clamp(Value + direction, Min, Max);
}

} // namespace lookfar
