#pragma once

#include "runtime/failure.h"
#include "runtime/pictures/decoded_body.h"

#include <chrono>
#include <functional>
#include <string>
#include <variant>

namespace lookfar {

/// One HTTP GET.
struct TransferRequest {
    /// As the user has typed it.
    std::string url;
    /// Bounds the whole transfer, from the name look-up to the last byte.
    std::chrono::milliseconds timeout{};
    /// Whether the proxies that the environment names are asked, for the hosts that it names them
    /// for.
    bool uses_proxies = true;
};

/// The body of the answer, decoded, whatever its HTTP status, or why there is none.
using TransferOutcome = std::variant<DecodedBodyReference, Failure>;
using TransferDone = std::function<void(TransferOutcome)>;

/// A transfer in progress. Its destruction abandons it at once: the outcome is then never
/// reported.
class Transfer {
  public:
    virtual ~Transfer() = default;
};

} // namespace lookfar
