#pragma once

#include "runtime/bytes.h"
#include "transfers/address.h"
#include "transfers/curl_handles.h"

#include <string>

namespace lookfar {

/// What the host names its answer by, so that it can be asked whether that still holds. Either may
/// be empty.
struct Validators {
    std::string etag = {};
    std::string last_modified = {};

    bool empty() const { return etag.empty() && last_modified.empty(); }
};

/// What a host has answered, behind all redirects.
struct Answer {
    long status = 0;
    /// In small letters, without parameters; empty where the host tells none.
    std::string media_type = {};
    Validators validators = {};
    /// The host wants nothing of it kept.
    bool is_not_to_be_stored = false;
    /// The host was told a user name and a password if it asked for them.
    bool had_credentials = false;
    Bytes body = {};
};

/// Reads the head of the answer to a transfer that has ended well and had asked that address. The
/// body is left empty.
Answer answer_head(CURL* handle, const Address& asked);

} // namespace lookfar
