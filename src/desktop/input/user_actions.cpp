#include "desktop/input/user_actions.h"

#include "runtime/element.h"
#include "runtime/runtime.h"

#include <utility>

namespace lookfar::desktop {

UserActions::UserActions(std::function<void()> show_changes)
    : show_changes_(std::move(show_changes)) {}

void UserActions::deliver(const Element& element, const std::function<void()>& handler) {
    if (are_suspended_)
        return;
    // The handler may end the element's life, but not the runtime's.
    Runtime& runtime = element.runtime;
    runtime.deliver(handler);
    runtime.serve_following();
    show_changes_();
}

} // namespace lookfar::desktop
