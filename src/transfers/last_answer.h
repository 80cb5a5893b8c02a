#pragma once

#include "runtime/transfer.h"
#include "transfers/answer.h"

#include <memory>
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
    explicit LastAnswer(PictureDecoder decode);

    /// What the host at the address can confirm instead of sending it again; null where there is
    /// nothing.
    KnownAnswerReference known_at(const std::string& address) const;

    /// The body of the answer, decoded, to a request to the address that went out with the
    /// conditions of `known`. What is confirmed, and what equals the last picture wherever that
    /// came from, is not decoded again.
    TransferOutcome outcome_of(Answer answer, const std::string& address,
                               const KnownAnswerReference& known);

  private:
    DecodedBodyReference decoded(Answer answer) const;

    PictureDecoder decode_;
    KnownAnswerReference last_;
};

} // namespace lookfar
