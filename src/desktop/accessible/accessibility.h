#pragma once

namespace lookfar::desktop {

/// Has assistive technology read the windows as they are meant: with the labels and pictures that
/// they draw themselves, and with the roles and values of the widgets that are ours. To be called
/// before the first window is made.
void make_windows_readable();

} // namespace lookfar::desktop
