#pragma once

#include "runtime/transfer.h"
#include "transfers/answer.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lookfar {

/// An answer that was a picture.
struct KnownAnswer {
    /// As it was asked for.
    std::string address;
    /// Empty where the host is not to be asked whether they still hold.
    Validators validators;
    DecodedBodyReference body;
};
using KnownAnswerReference = std::shared_ptr<const KnownAnswer>;

/// The lines of a request's head that ask for a picture only if it is no longer the known one. None
/// where nothing is known.
std::vector<std::string> conditions(const KnownAnswerReference& known);

/// Makes of each answer what the asker gets, and keeps the last one where that was a picture.
class LastAnswer {
  public:
    /// What the host at the address can confirm instead of sending it again; null where there is
    /// nothing.
    KnownAnswerReference known_at(const std::string& address) const;

    /// What comes of an answer that needs no decoding, to a request that went out with the
    /// conditions of `known`: the picture that is confirmed, or that was not asked about, or the
    /// one that equals the last, wherever that came from. Nothing for any other answer.
    std::optional<TransferOutcome> outcome_without_decoding(const Answer& answer,
                                                            const std::string& address,
                                                            const KnownAnswerReference& known);

    /// The body of the answer from the address with what it was decoded to.
    TransferOutcome outcome_of(Answer answer, const std::string& address, DecodedPicture picture);

  private:
    KnownAnswerReference last_;
};

} // namespace lookfar
