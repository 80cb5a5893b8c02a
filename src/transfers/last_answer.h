#pragma once

#include "runtime/transfer.h"
#include "transfers/answer.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace lookfar {

/// A picture that its host can confirm instead of sending it again.
struct KnownAnswer {
    /// As it was asked for.
    std::string address;
    Validators validators;
    DecodedBodyReference body;
};
using KnownAnswerReference = std::shared_ptr<const KnownAnswer>;

/// The lines of a request's head that ask for a picture only if it is no longer the known one. None
/// where nothing is known.
std::vector<std::string> conditions(const KnownAnswerReference& known);

/// Makes of each answer what the asker gets, and keeps the last one where its host can confirm it.
class LastAnswer {
  public:
    /// In bytes; a larger body is not kept.
    static constexpr std::size_t largest_body = std::size_t{16} * 1024 * 1024;

    /// What is known of the picture at the address; null where nothing is.
    KnownAnswerReference known_at(const std::string& address) const;

    /// The body of the answer, decoded, to a request that went out with the conditions of `known`.
    /// A confirmed body is the known one, which is not decoded again.
    TransferOutcome outcome_of(Answer answer, const TransferRequest& request,
                               const KnownAnswerReference& known);

  private:
    KnownAnswerReference last_;
};

} // namespace lookfar
