#include "transfers/last_answer.h"

#include "transfers/complaint.h"

#include <utility>

namespace lookfar {

namespace {

constexpr int ok = 200;
constexpr int not_modified = 304;

bool may_be_confirmed(const Answer& answer) {
    return answer.status == ok && !answer.failure && !answer.forbids_storing &&
           !answer.media_type.starts_with("multipart/");
}

KnownAnswerReference known_answer(const Answer& answer, const std::string& address,
                                  DecodedBodyReference body) {
    return std::make_shared<const KnownAnswer>(
        KnownAnswer{.address = address,
                    .entity_tag = may_be_confirmed(answer) ? answer.entity_tag : std::string(),
                    .body = std::move(body)});
}

} // namespace

KnownAnswerReference LastAnswer::known_at(const std::string& address) const {
    return last_ && last_->address == address && !last_->entity_tag.empty() ? last_ : nullptr;
}

std::optional<TransferOutcome>
LastAnswer::outcome_without_decoding(const Answer& answer, const std::string& address,
                                     const KnownAnswerReference& known) {
    if (answer.status == not_modified && known)
        return known->body;
    if (answer.status == not_modified)
        return Failure(not_modified,
                       "The camera answered 304 Not Modified without having been asked.");
    if (!last_ || *last_->body->bytes != answer.body)
        return std::nullopt;
    last_ = known_answer(answer, address, last_->body);
    return last_->body;
}

TransferOutcome LastAnswer::outcome_of(Answer answer, const std::string& address,
                                       DecodedPicture picture) {
    const bool is_picture = std::holds_alternative<Pixels>(picture);
    if (answer.failure && !is_picture)
        return *answer.failure;
    const std::string complaint = complaint_about(answer);
    auto body = decoded_body(std::move(answer.body), std::move(picture), complaint);
    last_ = is_picture ? known_answer(answer, address, body) : nullptr;
    return body;
}

} // namespace lookfar
