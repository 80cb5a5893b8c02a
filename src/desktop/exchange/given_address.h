#pragma once

#include <optional>
#include <string>

class QMimeData;

namespace lookfar::desktop {

/// An address of HTTP or HTTPS, and its title, if it came with one.
struct GivenAddress {
    std::string address;
    std::string title;
};

/// The address in what was pasted or dropped: a link as browsers give it, or a text of one line.
/// Nothing for whatever is no such address.
std::optional<GivenAddress> given_address(const QMimeData& data);

} // namespace lookfar::desktop
