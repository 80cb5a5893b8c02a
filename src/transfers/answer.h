#pragma once

#include "runtime/bytes.h"
#include "runtime/failure.h"
#include "transfers/address.h"
#include "transfers/curl_handles.h"

#include <optional>
#include <string>

namespace lookfar {

/// What the host behind all redirects has learnt of the address's user name and password.
enum class Credentials {
    /// There are none for it.
    none,
    untold,
    told
};

/// What a host has answered, behind all redirects.
struct Answer {
    long status = 0;
    /// In small letters, without parameters; empty where the host tells none.
    std::string media_type = {};
    /// The strong entity tag of the body; empty where the host tells none. A weak one and a date
    /// may stay the same while the picture changes.
    std::string entity_tag = {};
    /// The host wants no copy of it kept.
    bool forbids_storing = false;
    /// The host says that the body is packed.
    bool is_packed = false;
    Credentials credentials = Credentials::none;
    Bytes body = {};
    /// Why the end of the body is not certain. The bytes that have come may be a whole picture all
    /// the same; where they are none, this is the outcome.
    std::optional<Failure> failure = {};
};

/// Reads the head of the last answer of a transfer that had asked that address. Body and failure
/// are left empty.
Answer answer_head(CURL* handle, const Address& asked, bool are_credentials_told);

} // namespace lookfar
