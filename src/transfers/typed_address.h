#pragma once

#include <string>
#include <string_view>

namespace lookfar {

/// The ASCII text of a URL that browsers make of what somebody typed or pasted: white space around
/// it and line breaks within it go, backslashes before the query are slashes, http is the scheme
/// where there is none, and blanks and letters beyond ASCII are percent-encoded as UTF-8,
/// in the host name too.
///
/// Throws a `Failure` for a text without an address, with control characters, or with another
/// scheme than http and https.
std::string url_text_of(std::string_view typed);

} // namespace lookfar
