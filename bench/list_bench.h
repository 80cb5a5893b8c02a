#pragma once

namespace lookfar {
class Platform;
}

namespace lookfar::bench {

/// Registers the work on a list of 32,767 cameras, in processor time: the start-up that fills the
/// three lists, a save and a removal, each until the program waits for its user again.
///
/// The start-up is told as a multiple of what any program must do with such a file: read its
/// lines and sort its titles. Save and removal are told as multiples of that and of a safe copy of
/// the file's bytes, which reaches the disk before it takes the file's place. The platform answers
/// every question with Yes.
void register_lists(Platform& platform);

} // namespace lookfar::bench
