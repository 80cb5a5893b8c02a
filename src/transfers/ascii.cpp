#include "transfers/ascii.h"

#include <algorithm>
#include <cstddef>

namespace lookfar {

std::string_view trimmed_of_blanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string in_small_letters(std::string_view text) {
    std::string small(text);
    for (char& character : small)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return small;
}

std::string_view consume_until(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view consumed = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return consumed;
}

} // namespace lookfar
