#pragma once

namespace lookfar {
class Platform;
}

namespace lookfar::bench {

/// Registers the work on a list of 32,767 cameras, in real time: the start-up that fills the
/// three lists, a save and a removal, each until the program waits for its user again. The
/// platform answers every question with Yes.
void register_lists(Platform& platform);

} // namespace lookfar::bench
