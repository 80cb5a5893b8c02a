#include "transfers/curl_request.h"

#include "transfers/limits.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>

namespace lookfar {

namespace {

constexpr const char* spoken_protocols = "http,https";
/// libcurl's value for no proxy at all, whatever the environment names.
constexpr const char* no_proxy = "";
/// libcurl's value for all that it unpacks.
constexpr const char* all_encodings = "";
/// Eight times what libcurl reads at once by itself.
constexpr long max_bytes_at_once = 131072;

/// For libcurl zero means "no limit", and it refuses what does not fit an int.
long timeout_milliseconds(std::chrono::milliseconds timeout) {
    return static_cast<long>(std::clamp<std::int64_t>(timeout.count(), 1, INT_MAX));
}

void set_destination(CURL* handle, const Address& address, const RequestManner& manner) {
    set(handle, CURLOPT_URL, address.url.c_str());
    if (address.has_credentials()) {
        set(handle, CURLOPT_USERNAME, address.user_name.c_str());
        set(handle, CURLOPT_PASSWORD, address.password.c_str());
        set(handle, CURLOPT_HTTPAUTH, manner.authentication);
    }
    if (!manner.uses_proxies)
        set(handle, CURLOPT_PROXY, no_proxy);
    set(handle, CURLOPT_PROTOCOLS_STR, spoken_protocols);
    set(handle, CURLOPT_REDIR_PROTOCOLS_STR, spoken_protocols);
    set(handle, CURLOPT_FOLLOWLOCATION, 1L);
    set(handle, CURLOPT_MAXREDIRS, max_redirects);
}

void set_trust(CURL* handle) {
    if (const char* const certificates = std::getenv("SSL_CERT_FILE"))
        set(handle, CURLOPT_CAINFO, certificates);
}

void set_limits(CURL* handle, std::chrono::milliseconds timeout) {
    const long milliseconds = timeout_milliseconds(timeout);
    set(handle, CURLOPT_TIMEOUT_MS, milliseconds);
    set(handle, CURLOPT_CONNECTTIMEOUT_MS, milliseconds);
    set(handle, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(max_body_size));
    set(handle, CURLOPT_BUFFERSIZE, max_bytes_at_once);
    set(handle, CURLOPT_NOSIGNAL, 1L);
    // A name look-up that hangs is left behind rather than waited for.
    set(handle, CURLOPT_QUICK_EXIT, 1L);
}

} // namespace

void set_request(CURL* handle, const Address& address, const RequestManner& manner,
                 const HeaderLines& lines) {
    set_destination(handle, address, manner);
    set_trust(handle);
    set(handle, CURLOPT_USERAGENT, LOOKFAR_USER_AGENT);
    set(handle, CURLOPT_HTTPHEADER, lines.get());
    if (manner.unpacks)
        set(handle, CURLOPT_ACCEPT_ENCODING, all_encodings);
    set_limits(handle, manner.timeout);
}

} // namespace lookfar
