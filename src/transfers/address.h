#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lookfar {

/// Where an HTTP request goes.
struct Address {
    /// All ASCII: the host by IDNA, the rest percent-encoded. It holds no user name, no password
    /// and no fragment.
    std::string url;
    /// For the host that asks for them, and empty where the text had none. They stand for
    /// themselves, percent-encoded no more.
    std::string user_name;
    std::string password;

    bool has_credentials() const { return !user_name.empty() || !password.empty(); }
};

/// The longest text in bytes of an address.
inline constexpr std::size_t longest_address = std::size_t{64} * 1024;

/// Reads an address as browsers do: white space around it and line breaks within it don't count,
/// blanks and letters beyond ASCII may stand in it, in UTF-8 or Windows-1252, and without a scheme
/// it is one of http.
///
/// Throws a `Failure` with libcurl's number and a text that names the address's fault and quotes
/// nothing of the address, since that may hold a password.
Address address_of(std::string_view text);

} // namespace lookfar
