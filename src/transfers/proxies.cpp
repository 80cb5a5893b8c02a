#include "transfers/proxies.h"

#include "transfers/ascii.h"
#include "transfers/curl_handles.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace lookfar {

namespace {

std::string_view first_set(std::initializer_list<std::string> names) {
    for (const std::string& name : names)
        if (const char* const value = std::getenv(name.c_str()); value && *value)
            return value;
    return {};
}

/// A request can set HTTP_PROXY in the environment of a web server's script, so no program reads
/// it.
bool has_proxy(const std::string& scheme) {
    const std::string upper = scheme == "https" ? "HTTPS_PROXY" : "all_proxy";
    return !first_set({scheme + "_proxy", upper, "all_proxy", "ALL_PROXY"}).empty();
}

std::string part_of(CURLU* url, CURLUPart part) {
    char* text = nullptr;
    if (curl_url_get(url, part, &text, 0) != CURLUE_OK)
        return {};
    const CurlText owner(text);
    return text;
}

/// An address of the internet, in the order of the network.
struct IpAddress {
    std::array<std::uint8_t, sizeof(in6_addr)> bytes{};
    std::size_t bits = 0;
};

std::optional<IpAddress> ip_address(std::string text) {
    if (text.starts_with('[') && text.ends_with(']'))
        text = text.substr(1, text.size() - 2);
    IpAddress address;
    if (inet_pton(AF_INET, text.c_str(), address.bytes.data()) == 1)
        address.bits = sizeof(in_addr) * 8;
    else if (inet_pton(AF_INET6, text.c_str(), address.bytes.data()) == 1)
        address.bits = sizeof(in6_addr) * 8;
    else
        return std::nullopt;
    return address;
}

bool share_bits(const IpAddress& one, const IpAddress& other, std::size_t count) {
    for (std::size_t bit = 0; bit < count; ++bit)
        if (((one.bytes[bit / 8] ^ other.bytes[bit / 8]) & 0x80U >> bit % 8) != 0)
            return false;
    return true;
}

/// Whether a block such as 10.0.0.0/8, or a single address, holds the address.
bool holds(std::string_view block, const IpAddress& address) {
    const auto begin = ip_address(std::string(consume_until(block, '/')));
    if (!begin || begin->bits != address.bits)
        return false;
    std::size_t bits = address.bits;
    std::from_chars(block.data(), block.data() + block.size(), bits);
    return share_bits(*begin, address, std::min(bits, address.bits));
}

std::string_view without_dot_behind(std::string_view name) {
    return name.ends_with('.') ? name.substr(0, name.size() - 1) : name;
}

bool is_within(std::string_view host, std::string_view domain) {
    host = without_dot_behind(host);
    domain = without_dot_behind(domain.substr(domain.starts_with('.') ? 1 : 0));
    return host == domain || (!domain.empty() && host.ends_with("." + std::string(domain)));
}

bool is_excepted(const std::string& host, std::string_view exceptions) {
    const auto address = ip_address(host);
    while (!exceptions.empty()) {
        const std::size_t end = std::min(exceptions.find_first_of(", \t"), exceptions.size());
        const std::string entry = in_small_letters(exceptions.substr(0, end));
        exceptions.remove_prefix(std::min(end + 1, exceptions.size()));
        if (address ? holds(entry, *address) : is_within(host, entry))
            return true;
    }
    return false;
}

} // namespace

bool is_asked_by_proxy(const std::string& url) {
    const auto parts = owned<UrlHandle>(curl_url(), CURLE_OUT_OF_MEMORY);
    if (curl_url_set(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK)
        return false;
    const std::string_view exceptions = first_set({"no_proxy", "NO_PROXY"});
    const std::string host = in_small_letters(part_of(parts.get(), CURLUPART_HOST));
    return has_proxy(part_of(parts.get(), CURLUPART_SCHEME)) && exceptions != "*" &&
           !is_excepted(host, exceptions);
}

} // namespace lookfar
