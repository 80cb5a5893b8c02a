#include "runtime/numbers.h"

#include "runtime/failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string_view>

namespace lookfar {

namespace {

std::string_view without_leading_blanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// A number at the start of a text, and what stands behind it.
struct Reading {
    bool found = false;
    double value = 0;
    std::string_view rest;
};

/// The value of digits that std::from_chars finds out of range without telling on which side: 0
/// where they are too small, infinity where they are too large.
double value_out_of_range(const std::string& digits) {
    std::istringstream stream(digits);
    stream.imbue(std::locale::classic());
    double nearest = 0;
    stream >> nearest;
    return nearest < 1 ? 0 : HUGE_VAL;
}

Reading read_number(std::string_view text) {
    text = without_leading_blanks(text);
    const bool is_negative = text.starts_with('-');
    if (is_negative || text.starts_with('+'))
        text.remove_prefix(1);
    // std::from_chars takes words such as "inf" and a sign of its own, which are no number here.
    if (text.find_first_of(".0123456789") != 0)
        return {};
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument)
        return {};
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error == std::errc::result_out_of_range)
        value = value_out_of_range(std::string(text.substr(0, length)));
    text.remove_prefix(length);
    return {.found = true, .value = is_negative ? -value : value, .rest = text};
}

template <class Whole>
Whole round_to(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Whole>::min() &&
          rounded <= std::numeric_limits<Whole>::max()))
        throw Failure(FailureKind::overflow, "The number is too large.");
    return static_cast<Whole>(rounded);
}

} // namespace

double Val(const std::string& text) {
    return read_number(text).value;
}

double strict_number(const std::string& text) {
    const Reading reading = read_number(text);
    if (!reading.found || !without_leading_blanks(reading.rest).empty())
        throw Failure(FailureKind::type_mismatch, "The text is not a number.");
    return reading.value;
}

std::int16_t round_to_short(double value) {
    return round_to<std::int16_t>(value);
}

std::int32_t round_to_long(double value) {
    return round_to<std::int32_t>(value);
}

std::string number_text(double value) {
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end};
}

std::string number_text_with_blank(double value) {
    const std::string text = number_text(value);
    return text.starts_with('-') ? text : " " + text;
}

} // namespace lookfar
