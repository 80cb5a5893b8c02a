#pragma once

#include "runtime/failure.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace lookfar {

using Bytes = std::vector<std::uint8_t>;

/// One HTTP GET.
struct TransferRequest {
    std::string url;
    /// Bounds the whole transfer, from the name look-up to the last byte.
    std::chrono::milliseconds timeout{};
};

/// The body of the answer, whatever its HTTP status, or why there is none.
using TransferOutcome = std::variant<Bytes, Failure>;
using TransferDone = std::function<void(TransferOutcome)>;

/// A transfer in progress. Its destruction abandons it at once: the outcome is then never
/// reported.
class Transfer {
  public:
    virtual ~Transfer() = default;
};

} // namespace lookfar
