#include "runtime/controls/inet.h"

#include "runtime/form.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"
#include "runtime/scoped_value.h"

#include <chrono>
#include <utility>

namespace lookfar {

namespace {

constexpr short direct_access = 1;

DecodedBodyReference body_of(const TransferOutcome& outcome) {
    if (const auto* failure = std::get_if<Failure>(&outcome))
        throw *failure;
    auto body = std::get<DecodedBodyReference>(outcome);
    if (body->bytes->empty())
        throw Failure(FailureKind::transfer_without_bytes,
                      std::get<Failure>(body->picture).Description);
    return body;
}

} // namespace

Inet::Inet(Form& owner, const InetDesign& design)
    : Element(owner.runtime),
      AccessType(*this, 0),
      Protocol(*this, 0),
      RequestTimeout(*this, design.RequestTimeout) {}

DecodedBodyReference Inet::OpenURL(const std::string& url, DataType) {
    if (is_busy_)
        throw Failure(FailureKind::transfer_busy, "Still executing last request");
    const ScopedValue busy(is_busy_, true);
    outcome_.reset();
    const auto transfer = runtime.platform().start_transfer(
        {.url = url,
         .timeout = std::chrono::seconds(RequestTimeout),
         .uses_proxies = AccessType != direct_access},
        [this](TransferOutcome outcome) { outcome_ = std::move(outcome); });
    runtime.platform().wait_until([this] { return outcome_.has_value(); });
    // The wait has brought an outcome.
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access)
    return body_of(*std::exchange(outcome_, std::nullopt));
}

void Inet::Cancel() {
    if (is_busy_)
        outcome_ = Failure(FailureKind::transfer_cancelled, "The request was cancelled.");
}

} // namespace lookfar
