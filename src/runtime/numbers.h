#pragma once

#include <cstdint>
#include <string>

namespace lookfar {

/// The value of the number at the start of a text, 0 if there is none. Never fails. A number is
/// blanks, a sign, decimal digits with at most one point, and an exponent; the longest such start
/// counts.
double Val(const std::string& text);

/// The value of a text that is a number as a whole, blanks around it allowed. Throws a `Failure`
/// for any other text, the empty one included.
double strict_number(const std::string& text);

/// To the nearest whole number, halves to the even neighbour. Throws a `Failure` for a value
/// that does not fit.
std::int16_t round_to_short(double value);
std::int32_t round_to_long(double value);

/// The shortest decimal text of a number.
std::string number_text(double value);
/// The same with a blank in front unless the number is negative.
std::string number_text_with_blank(double value);

} // namespace lookfar
