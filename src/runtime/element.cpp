#include "runtime/element.h"

#include "runtime/runtime.h"
#include "runtime/window_system.h"

namespace lookfar {

Element::~Element() {
    runtime.windows().forget(*this);
}

void Element::changed() {
    runtime.element_changed(*this);
}

} // namespace lookfar
