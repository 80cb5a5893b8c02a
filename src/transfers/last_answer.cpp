#include "transfers/last_answer.h"

#include "transfers/complaint.h"

#include <utility>

namespace lookfar {

namespace {

constexpr int ok = 200;
constexpr int not_modified = 304;

bool may_be_confirmed(const Answer& answer) {
    return answer.status == ok && !answer.is_not_to_be_stored &&
           !answer.media_type.starts_with("multipart/");
}

} // namespace

std::vector<std::string> conditions(const KnownAnswerReference& known) {
    std::vector<std::string> lines;
    if (known && !known->validators.etag.empty())
        lines.push_back("If-None-Match: " + known->validators.etag);
    if (known && !known->validators.last_modified.empty())
        lines.push_back("If-Modified-Since: " + known->validators.last_modified);
    return lines;
}

LastAnswer::LastAnswer(PictureDecoder decode) : decode_(std::move(decode)) {}

KnownAnswerReference LastAnswer::known_at(const std::string& address) const {
    return last_ && last_->address == address && !last_->validators.empty() ? last_ : nullptr;
}

TransferOutcome LastAnswer::outcome_of(Answer answer, const std::string& address,
                                       const KnownAnswerReference& known) {
    if (answer.status == not_modified && known)
        return known->body;
    if (answer.status == not_modified)
        return Failure(not_modified,
                       "The camera answered 304 Not Modified without having been asked.");
    const auto validators = may_be_confirmed(answer) ? std::move(answer.validators) : Validators();
    auto body = decoded(std::move(answer));
    const bool is_picture = std::holds_alternative<Pixels>(body->picture);
    last_ = is_picture ? std::make_shared<const KnownAnswer>(KnownAnswer{address, validators, body})
                       : nullptr;
    return body;
}

DecodedBodyReference LastAnswer::decoded(Answer answer) const {
    if (last_ && last_->body->bytes == answer.body)
        return last_->body;
    const std::string complaint = complaint_about(answer);
    return decoded_body(std::move(answer.body), decode_, complaint);
}

} // namespace lookfar
