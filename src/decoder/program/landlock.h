#pragma once

namespace lookfar::decoder {

/// Gives up all rights of this process to the files of the system for good, by Landlock, where the
/// kernel has it. It may gain no privileges any more. Throws std::system_error where the kernel
/// has Landlock and refuses.
void close_file_system();

} // namespace lookfar::decoder
