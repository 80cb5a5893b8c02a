#pragma once

#include "demo/connection.h"
#include "demo/http.h"

#include <string>

namespace lookfar::demo {

struct Account {
    std::string user;
    std::string password;
};

/// Gives the answer to requests that carry the account as basic authentication has it. All others
/// get status 401 and the challenge.
Responder locked_by_basic(Answer inside, const Account& account);

/// The same with digest authentication, which never sends the password itself.
Responder locked_by_digest(Answer inside, Account account);

} // namespace lookfar::demo
