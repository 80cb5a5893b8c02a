#include "runtime/controls/control.h"

#include "runtime/form.h"
#include "runtime/runtime.h"
#include "runtime/window_system.h"

namespace lookfar {

Control::Control(Form& owner, bool visible)
    : Element(owner.runtime), form(owner), Visible(*this, visible) {
    form.add(*this);
}

Control::~Control() {
    form.remove(*this);
}

void Control::ShowHint(const std::string& text) {
    runtime.windows().show_hint(*this, text);
}

void Control::Announce(const std::string& text) {
    if (form.Visible)
        runtime.windows().announce(*this, text);
}

BoxControl::BoxControl(Form& owner, const Bounds& bounds, bool visible)
    : Control(owner, visible),
      Left(*this, bounds.Left),
      Top(*this, bounds.Top),
      Width(*this, bounds.Width),
      Height(*this, bounds.Height) {}

} // namespace lookfar
