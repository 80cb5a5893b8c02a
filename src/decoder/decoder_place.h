#pragma once

#include <filesystem>

namespace lookfar::decoder {

/// The decoder that belongs to the running program: a file beside the program's own, or where it is
/// installed. Neither the environment nor the current directory has a say in it.
std::filesystem::path decoder_of_this_program();

} // namespace lookfar::decoder
