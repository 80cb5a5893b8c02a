#include "transfers/typed_address.h"

#include "runtime/failure.h"
#include "runtime/text.h"
#include "transfers/ascii.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace lookfar {

namespace {

/// White space of ASCII, no-break, ideographic and zero-width space, byte order mark.
constexpr std::array<std::string_view, 10> white_space{
    " ", "\t", "\r", "\n", "\v", "\f", "\u00A0", "\u3000", "\u200B", "\uFEFF"};

/// The length of the white space that the text starts with, or zero.
std::size_t space_before(std::string_view text) {
    for (const std::string_view space : white_space)
        if (text.starts_with(space))
            return space.size();
    return 0;
}

std::size_t space_behind(std::string_view text) {
    for (const std::string_view space : white_space)
        if (text.ends_with(space))
            return space.size();
    return 0;
}

std::string_view trimmed(std::string_view text) {
    while (const std::size_t length = space_before(text))
        text.remove_prefix(length);
    while (const std::size_t length = space_behind(text))
        text.remove_suffix(length);
    return text;
}

void remove_line_breaks(std::string& text) {
    std::erase_if(text, [](char character) {
        return character == '\t' || character == '\r' || character == '\n';
    });
}

void refuse_controls(std::string_view text) {
    for (const char character : text)
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F)
            throw Failure(CURLE_URL_MALFORMAT, "The address holds control characters.");
}

void turn_backslashes(std::string& text) {
    const std::size_t end = std::min(text.find_first_of("?#"), text.size());
    std::replace(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\\', '/');
}

bool is_scheme(std::string_view text) {
    constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyz0123456789+-.";
    return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

std::string_view without_slashes_before(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of('/'), text.size()));
}

/// Whether the text, from the colon behind it on, makes the word a scheme and not a host.
bool names_scheme(std::string_view word, std::string_view from_colon) {
    constexpr std::array<std::string_view, 6> without_slashes{"about", "blob",       "data",
                                                              "file",  "javascript", "mailto"};
    if (from_colon.starts_with("://"))
        return is_scheme(word);
    const std::string_view port = from_colon.substr(0, from_colon.find_first_of("/?#"));
    return std::ranges::find(without_slashes, word) != without_slashes.end() &&
           !from_colon.empty() && port.find_first_not_of("0123456789", 1) != std::string_view::npos;
}

struct SplitAddress {
    std::string scheme;
    /// From the user name or the host on.
    std::string_view rest;
};

SplitAddress split(std::string_view text) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    const std::string scheme = in_small_letters(text.substr(0, colon));
    if (scheme == "http" || scheme == "https")
        return {scheme, without_slashes_before(text.substr(std::min(colon + 1, text.size())))};
    if (names_scheme(scheme, text.substr(colon)))
        throw Failure(CURLE_UNSUPPORTED_PROTOCOL, "The address is neither http nor https.");
    return {"http", without_slashes_before(text)};
}

void append_encoded(std::string& text, char character) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(character);
    text += {'%', digits[byte / 16U], digits[byte % 16U]};
}

std::string percent_encoded(std::string_view text, std::string_view never_allowed) {
    std::string encoded;
    for (const char character : text)
        if (static_cast<unsigned char>(character) >= 0x80 ||
            never_allowed.find(character) != std::string_view::npos)
            append_encoded(encoded, character);
        else
            encoded += character;
    return encoded;
}

/// The length of the user name and password that the text starts with, which the last @ before the
/// path ends.
std::size_t length_of_user(std::string_view text) {
    const std::string_view authority = text.substr(0, text.find_first_of("/?#"));
    const std::size_t end = authority.rfind('@');
    return end == std::string_view::npos ? 0 : end;
}

} // namespace

std::string url_text_of(std::string_view typed) {
    const std::string readable = as_utf8(typed);
    std::string text(trimmed(readable));
    remove_line_breaks(text);
    refuse_controls(text);
    if (text.empty())
        throw Failure(CURLE_URL_MALFORMAT, "The address is empty.");
    turn_backslashes(text);
    const auto [scheme, rest] = split(text);
    const std::size_t user = length_of_user(rest);
    return scheme + "://" + percent_encoded(rest.substr(0, user), " \"<>@") +
           percent_encoded(rest.substr(user), " \"<>");
}

} // namespace lookfar
