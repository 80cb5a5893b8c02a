#pragma once

#include "runtime/scoped_value.h"

#include <functional>

namespace lookfar {
class Element;
}

namespace lookfar::desktop {

/// The way of the user's actions from the widgets to the handlers.
///
/// A widget reports every change of its value, also one that it takes over from the model. Only
/// what the user changes is an action, so the actions are suspended while widgets take over.
class UserActions {
  public:
    /// Calls `show_changes` after each handler, to show what that has changed.
    explicit UserActions(std::function<void()> show_changes);

    /// Runs a handler for what the user did to the element, and shows what it has changed. Does
    /// nothing while the actions are suspended.
    void deliver(const Element& element, const std::function<void()>& handler);

    bool are_suspended() const { return are_suspended_; }

    /// Suspends the actions as long as the result lives.
    [[nodiscard]] ScopedValue<bool> suspend() { return {are_suspended_, true}; }

  private:
    std::function<void()> show_changes_;
    bool are_suspended_ = false;
};

} // namespace lookfar::desktop
