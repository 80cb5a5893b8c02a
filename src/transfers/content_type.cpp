#include "transfers/content_type.h"

#include "transfers/ascii.h"

#include <cstddef>

namespace lookfar {

namespace {

/// Between quotes every character may stand, the one that ends a parameter too.
std::string_view consume_value(std::string_view& text) {
    text = trimmed_of_blanks(text);
    if (!text.starts_with('"'))
        return trimmed_of_blanks(consume_until(text, ';'));
    text.remove_prefix(1);
    const std::string_view value = consume_until(text, '"');
    consume_until(text, ';');
    return value;
}

} // namespace

std::string media_type_of(std::string_view content_type) {
    constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyz0123456789!#$&^_.+-/";
    constexpr std::size_t longest = 127;
    const std::string type = in_small_letters(trimmed_of_blanks(consume_until(content_type, ';')));
    const bool is_type = type.size() <= longest && type.find('/') != std::string::npos &&
                         type.find_first_not_of(allowed) == std::string::npos;
    return is_type ? type : std::string();
}

std::string parameter_of(std::string_view content_type, std::string_view name) {
    consume_until(content_type, ';');
    while (!content_type.empty()) {
        const std::string found =
            in_small_letters(trimmed_of_blanks(consume_until(content_type, '=')));
        const std::string_view value = consume_value(content_type);
        if (found == name)
            return std::string(value);
    }
    return {};
}

} // namespace lookfar
