#pragma once

#include "runtime/failure.h"

#include <optional>

namespace lookfar::testing {

/// What the action fails with; nothing where it goes well.
template <class Action>
std::optional<Failure> failure_of(Action&& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure;
    }
    return std::nullopt;
}

/// The kind of that failure.
template <class Action>
std::optional<FailureKind> kind_of(Action&& action) {
    const auto failure = failure_of(action);
    return failure ? std::optional(failure->Kind) : std::nullopt;
}

} // namespace lookfar::testing
