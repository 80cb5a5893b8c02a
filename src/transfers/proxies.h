#pragma once

#include <string>

namespace lookfar {

/// Whether the environment names a proxy for the URL, in the variables that libcurl reads: that of
/// the scheme, as in https_proxy, or all_proxy, unless no_proxy names the host. A list there holds
/// names, each for its subdomains too, addresses and blocks of addresses.
bool is_asked_by_proxy(const std::string& url);

} // namespace lookfar
