#pragma once

#include "runtime/transfer.h"

#include <string>

namespace lookfar {
class DesktopPlatform;
}

namespace lookfar::bench {

/// Registers the refreshes of a program whose camera serves JPEGs like this one under a URL, from
/// the fetch to the painted window, told as a multiple of one decode by libjpeg-turbo. The size
/// names them.
void register_refreshes(DesktopPlatform& platform, const std::string& size, const std::string& url,
                        const Bytes& picture);

} // namespace lookfar::bench
