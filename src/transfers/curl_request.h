#pragma once

#include "transfers/address.h"
#include "transfers/curl_handles.h"

#include <chrono>

namespace lookfar {

/// How a host is asked for its picture.
struct RequestManner {
    /// Bounds all of it.
    std::chrono::milliseconds timeout{};
    bool uses_proxies = true;
    /// The schemes of libcurl's by which the host may be told the password, the better one of
    /// those that it offers. A single one tells it unasked.
    unsigned long authentication = CURLAUTH_DIGEST | CURLAUTH_BASIC;
    /// Whether the body may be packed, and is unpacked then.
    bool unpacks = true;
};

/// Tells the handle whom to ask, in what manner, and with these head lines besides; it goes on
/// reading those. Throws a Failure where libcurl refuses.
void set_request(CURL* handle, const Address& address, const RequestManner& manner,
                 const HeaderLines& lines);

/// Throws a Failure where libcurl refuses.
template <class Value>
void set(CURL* handle, CURLoption option, Value value) {
    if (const CURLcode code = curl_easy_setopt(handle, option, value); code != CURLE_OK)
        throw failure_of(code);
}

} // namespace lookfar
