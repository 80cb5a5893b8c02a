#pragma once

/// The numbers under which handlers open their files.
///
/// The list and the picture file share a number and never collide: each is opened, used and closed
/// without the message loop running in between. The one exception is the question before a camera
/// is overwritten, which runs the loop while the list is open. No picture file is opened under it:
/// a fetch that began before waits until the question is answered, and a refresh that comes
/// meanwhile fails as it opens the list, before it fetches anything.
namespace lookfar::file_number {
inline constexpr int list = 1;
inline constexpr int list_copy = 2;
inline constexpr int picture = 1;
} // namespace lookfar::file_number
