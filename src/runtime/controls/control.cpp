#include "runtime/controls/control.h"

#include "runtime/form.h"

namespace lookfar {

Control::Control(Form& owner, bool visible)
    : Element(owner.runtime), form(owner), Visible(*this, visible) {
    form.add(*this);
}

Control::~Control() {
    form.remove(*this);
}

BoxControl::BoxControl(Form& owner, const Bounds& bounds, bool visible)
    : Control(owner, visible),
      Left(*this, bounds.Left),
      Top(*this, bounds.Top),
      Width(*this, bounds.Width),
      Height(*this, bounds.Height) {}

} // namespace lookfar
