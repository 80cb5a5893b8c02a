#pragma once

#include <string>

namespace lookfar::desktop {

/// The address of the bus of assistive technology, as the X server's root window names it; empty
/// where there is no X server, or no such bus.
std::string accessibility_bus_address();

} // namespace lookfar::desktop
