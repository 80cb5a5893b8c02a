#include "transfers/answer_heads.h"

#include "transfers/ascii.h"
#include "transfers/curl_transfers.h"

namespace lookfar {

namespace {

bool is_status_of_unauthorized(std::string_view line) {
    if (!line.starts_with("HTTP/"))
        return false;
    take_until(line, ' ');
    return line.starts_with("401");
}

} // namespace

bool AnswerHeads::append(std::string_view line) {
    const bool is_last = line == "\r\n" || line == "\n";
    stage_ = is_last ? ExchangeStage::reading_body : ExchangeStage::reading_head;
    size_ += line.size();
    if (is_status_of_unauthorized(line))
        ++unauthorized_;
    return !is_too_large();
}

bool AnswerHeads::is_too_large() const {
    return size_ > CurlTransfers::largest_header;
}

} // namespace lookfar
