#include "transfers/last_answer.h"

#include "transfers/complaint.h"

#include <utility>

namespace lookfar {

namespace {

constexpr int ok = 200;
constexpr int not_modified = 304;

bool may_be_confirmed(const Answer& answer) {
    const auto& [etag, last_modified] = answer.validators;
    return answer.status == ok && !answer.is_not_to_be_stored &&
           !answer.media_type.starts_with("multipart/") &&
           answer.body.size() <= LastAnswer::largest_body &&
           !(etag.empty() && last_modified.empty());
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

KnownAnswerReference LastAnswer::known_at(const std::string& address) const {
    return last_ && last_->address == address ? last_ : nullptr;
}

TransferOutcome LastAnswer::outcome_of(Answer answer, const TransferRequest& request,
                                       const KnownAnswerReference& known) {
    if (answer.status == not_modified && known)
        return known->body;
    if (answer.status == not_modified)
        return Failure(not_modified,
                       "The camera answered 304 Not Modified without having been asked.");
    last_ = nullptr;
    const bool is_kept = may_be_confirmed(answer);
    const std::string complaint = complaint_about(answer);
    auto body = request.decode(std::move(answer.body), complaint);
    if (is_kept && std::holds_alternative<Pixels>(body->picture))
        last_ = std::make_shared<const KnownAnswer>(
            KnownAnswer{request.url, std::move(answer.validators), body});
    return body;
}

} // namespace lookfar
