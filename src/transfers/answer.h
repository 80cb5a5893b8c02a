#pragma once

#include "runtime/bytes.h"
#include "transfers/address.h"
#include "transfers/curl_handles.h"

#include <string>

namespace lookfar {

/// What a host has answered, behind all redirects.
struct Answer {
    long status = 0;
    /// In small letters, without parameters; empty where the host tells none.
    std::string media_type = {};
    /// The strong entity tag of the body; empty where the host tells none. A weak one and a date
    /// may stay the same while the picture changes.
    std::string entity_tag = {};
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
