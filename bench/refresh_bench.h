#pragma once

#include "runtime/transfer.h"

#include <string>

namespace lookfar {
class Program;
}

namespace lookfar::bench {

/// Registers the refreshes of a started program, whose camera serves this JPEG, told as a
/// multiple of its decode by libjpeg-turbo.
void register_refreshes(Program& program, const Bytes& picture);

} // namespace lookfar::bench
