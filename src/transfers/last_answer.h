#pragma once

#include "runtime/transfer.h"
#include "transfers/answer.h"

#include <memory>
#include <optional>
#include <string>

namespace lookfar {

/// An answer that was a picture.
struct KnownAnswer {
    /// As it was asked for.
    std::string address;
    /// Empty where the host is not to be asked whether its picture still is that one.
    std::string entity_tag;
    DecodedBodyReference body;
};
using KnownAnswerReference = std::shared_ptr<const KnownAnswer>;

/// Makes of each answer what the asker gets, and keeps the last one where that was a picture.
class LastAnswer {
  public:
    /// What the host at the address can confirm, by its entity tag, instead of sending it again;
    /// null where there is nothing.
    KnownAnswerReference known_at(const std::string& address) const;

    /// What comes of an answer that needs no decoding, to a request that went out for
    /// anything but `known`: the picture that is confirmed, or that was not asked about, or the
    /// one that equals the last, wherever that came from. Nothing for any other answer.
    std::optional<TransferOutcome> outcome_without_decoding(const Answer& answer,
                                                            const std::string& address,
                                                            const KnownAnswerReference& known);

    /// The body of the answer from the address with what it was decoded to, or the answer's failure
    /// where that is no picture.
    TransferOutcome outcome_of(Answer answer, const std::string& address, DecodedPicture picture);

  private:
    KnownAnswerReference last_;
};

} // namespace lookfar
