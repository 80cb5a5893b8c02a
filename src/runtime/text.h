#pragma once

#include <string>
#include <string_view>

namespace lookfar {

/// How bytes are shown: valid UTF-8 as it is, anything else read as Windows-1252. The result is
/// valid UTF-8.
std::string as_utf8(std::string_view bytes);

/// A key by which texts sort without regard to case: the code points of Latin, Greek and
/// Cyrillic capitals folded to their small letters.
std::u32string caseless_key(std::string_view bytes);

} // namespace lookfar
