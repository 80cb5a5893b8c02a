// The readings of a number agree with the standard library's on the part of the text that the
// grammar of a number takes, and a number that is written reads back as itself.
#include "runtime/numbers.h"
#include "fuzz/support/expect.h"
#include "runtime/failure.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <regex>
#include <string>

namespace lookfar::fuzz {
namespace {

struct Model {
    double lenient = 0;
    std::optional<double> strict;
};

Model read_plainly(const std::string& text) {
    static const std::regex number("[ \t]*([+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?)");
    static const std::regex blanks("[ \t]*");
    std::smatch found;
    if (!std::regex_search(text, found, number, std::regex_constants::match_continuous))
        return {};
    const double value = std::strtod(found[1].str().c_str(), nullptr);
    const bool is_whole = std::regex_match(found.suffix().str(), blanks);
    return {.lenient = value, .strict = is_whole ? std::optional(value) : std::nullopt};
}

std::optional<double> read_strictly(const std::string& text) {
    std::optional<double> value;
    attempt([&] { value = strict_number(text); });
    return value;
}

void check_reading(const std::string& text) {
    const Model model = read_plainly(text);
    expect(Val(text) == model.lenient, "the lenient reading is the standard library's");
    expect(read_strictly(text) == model.strict, "the strict reading is the standard library's");
}

template <class Whole>
void check_rounding(double value, Whole (*round)(double)) {
    const bool fits = value >= std::numeric_limits<Whole>::min() - 0.5 &&
                      value < std::numeric_limits<Whole>::max() + 0.5;
    std::optional<Whole> rounded;
    attempt([&] { rounded = round(value); });
    expect(rounded.has_value() == fits, "only what fits is rounded");
    if (!rounded)
        return;
    const double distance = std::abs(*rounded - value);
    expect(distance < 0.5 || (distance == 0.5 && *rounded % 2 == 0), "halves go to the even side");
}

void check_writing(double value) {
    if (!std::isfinite(value))
        return;
    expect(read_strictly(number_text(value)) == value, "a number reads back as itself");
    expect(read_strictly(number_text_with_blank(value)) == value, "a blank changes no number");
    expect(number_text_with_blank(value).front() == (std::signbit(value) ? '-' : ' '),
           "a blank or a minus sign comes first");
}

void check_number(double value) {
    check_rounding(value, round_to_short);
    check_rounding(value, round_to_long);
    check_writing(value);
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace lookfar;
    const std::string text(reinterpret_cast<const char*>(data), size);
    fuzz::check_reading(text);
    fuzz::check_number(Val(text));
    if (size == sizeof(double)) {
        double value = 0;
        std::memcpy(&value, data, size);
        fuzz::check_number(value);
    }
    return 0;
}
