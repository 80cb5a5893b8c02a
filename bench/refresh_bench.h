#pragma once

#include "runtime/transfer.h"

#include <string>

namespace lookfar {
class Platform;
}

namespace lookfar::bench {

/// Registers the refreshes of a program whose camera serves this JPEG under a URL, told as a
/// multiple of its decode by libjpeg-turbo.
void register_refreshes(Platform& platform, const std::string& url, const Bytes& picture);

} // namespace lookfar::bench
