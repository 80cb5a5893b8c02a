#pragma once

#include "runtime/transfer.h"

#include <string>

namespace lookfar {
class DesktopPlatform;
}

namespace lookfar::bench {

/// Registers refreshes of a 3840x2160 picture into a fullscreen window of 1920x1080 pixels: the
/// longest time for which the message loop serves nobody, beside one decode of the picture by
/// libjpeg-turbo and one by the program's own decoder. All three are processor time, which other
/// processes stretch least; the stall is told in real time too.
void register_stalls(DesktopPlatform& platform, const std::string& url, const Bytes& picture);

} // namespace lookfar::bench
