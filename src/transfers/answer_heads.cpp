#include "transfers/answer_heads.h"

#include "transfers/ascii.h"

#include <string>

namespace lookfar {

namespace {

bool is_status_of_unauthorized(std::string_view line) {
    if (!line.starts_with("HTTP/"))
        return false;
    consume_until(line, ' ');
    return line.starts_with("401");
}

} // namespace

bool AnswerHeads::append(std::string_view line) {
    const bool is_last = line == "\r\n" || line == "\n";
    stage_ = is_last ? ExchangeStage::reading_body : ExchangeStage::reading_head;
    size_ += line.size();
    if (is_status_of_unauthorized(line))
        ++unauthorized_;
    look_for_digest(line);
    return !is_too_large();
}

void AnswerHeads::look_for_digest(std::string_view line) {
    const std::string field = in_small_letters(line);
    const std::size_t digest = field.find("digest ");
    const bool is_first = digest_ == Digest::none && digest != std::string::npos;
    if (!is_first || !field.starts_with("www-authenticate:"))
        return;
    const bool is_wrong = field.find("sha-512-256", digest) != std::string::npos;
    digest_ = is_wrong ? Digest::wrong : Digest::good;
}

} // namespace lookfar
