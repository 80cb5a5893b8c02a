#pragma once

#include <string>
#include <string_view>

namespace lookfar {

/// Without blanks, tabs and carriage returns at its ends.
std::string_view trimmed_of_blanks(std::string_view text);

/// The letters of ASCII made small.
std::string in_small_letters(std::string_view text);

/// Cuts what stands before the first separator off the text, and the separator too. All of the text
/// where there is none.
std::string_view consume_until(std::string_view& text, char separator);

} // namespace lookfar
