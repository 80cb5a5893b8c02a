#pragma once

#include "demo/connection.h"

namespace lookfar::demo {

/// Gives the answer to the user "guest" with the password "secret", as basic authentication has
/// it. All others get status 401 and the challenge.
Responder locked_by_basic(const Answer& inside);

/// The same with digest authentication, which never sends the password itself.
Responder locked_by_digest(const Answer& inside);

} // namespace lookfar::demo
