#pragma once

#include <string>

namespace lookfar {
class DesktopPlatform;
}

namespace lookfar::bench {

/// Registers the program at rest between two refreshes, with a picture from this URL on the screen
/// and with a failure, in both windows: the share of one core that it takes, its wake-ups a second,
/// and what the same program takes whose timers never hold a tick back.
void register_rests(DesktopPlatform& platform, const std::string& url);

} // namespace lookfar::bench
