#pragma once

#include <memory>
#include <utility>

namespace lookfar::desktop {

/// Makes an object that Qt owns: its parent destroys it, or the object of Qt that it is passed to.
template <class Object, class... Arguments>
Object* owned_by_qt(Arguments&&... arguments) {
    return std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
}

} // namespace lookfar::desktop
