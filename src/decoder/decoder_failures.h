#pragma once

#include "runtime/failure.h"

#include <string>

namespace lookfar::decoder {

// Why a picture comes to nothing through no fault of its format, for the user.

/// The decoder has ended, or says what can't be true.
Failure has_failed();
Failure takes_too_long();
/// With the system's number of the error.
Failure cannot_be_started(int error);
Failure cannot_be_locked_in(int error);
/// It ended before it was ready.
Failure ends_at_its_start();

} // namespace lookfar::decoder
