#pragma once

#include "transfers/answer.h"

#include <string>

namespace lookfar {

/// What the user is told where the answer's body is no picture: the status, if it tells of a
/// failure, or else what the camera has sent instead.
std::string complaint_about(const Answer& answer);

} // namespace lookfar
