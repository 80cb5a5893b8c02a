#include "runtime/element.h"

#include "runtime/platform.h"
#include "runtime/runtime.h"

namespace lookfar {

Element::~Element() {
    runtime.platform().forget(*this);
}

void Element::changed() {
    runtime.element_changed(*this);
}

} // namespace lookfar
