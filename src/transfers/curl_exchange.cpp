#include "transfers/curl_exchange.h"

#include "transfers/proxies.h"

#include <string>
#include <utility>

namespace lookfar {

namespace {

/// A stream gives a picture too. Whatever else a host has, its answer may tell the user more than
/// a refusal does.
constexpr const char* all_else = ",multipart/x-mixed-replace;q=0.5,*/*;q=0.1";

bool offers_basic(CURL* handle) {
    long schemes = 0;
    curl_easy_getinfo(handle, CURLINFO_HTTPAUTH_AVAIL, &schemes);
    return (static_cast<unsigned long>(schemes) & CURLAUTH_BASIC) != 0;
}

std::chrono::milliseconds time_taken(CURL* handle) {
    curl_off_t microseconds = 0;
    curl_easy_getinfo(handle, CURLINFO_TOTAL_TIME_T, &microseconds);
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::microseconds(microseconds));
}

} // namespace

CurlExchange::CurlExchange(CURLM* multi, std::shared_ptr<TransferTicket> ticket,
                           RequestManner manner, const std::string& media_types,
                           KnownAnswerReference known)
    : multi_(multi),
      ticket_(std::move(ticket)),
      address_(address_of(ticket_->request.url)),
      manner_(manner),
      known_(std::move(known)) {
    set_head_lines(media_types);
    set_request(easy_.get(), address_, manner_, header_lines_);
    set_receiver();
    if (curl_multi_add_handle(multi_, easy_.get()) != CURLM_OK)
        throw failure_of(CURLE_FAILED_INIT);
}

CurlExchange::~CurlExchange() {
    curl_multi_remove_handle(multi_, easy_.get());
}

CurlExchange& CurlExchange::of(CURL* handle) {
    CurlExchange* exchange = nullptr;
    curl_easy_getinfo(handle, CURLINFO_PRIVATE, &exchange);
    return *exchange;
}

std::optional<RequestManner> CurlExchange::other_manner(CURLcode code) const {
    RequestManner other = manner_;
    other.timeout -= time_taken(easy_.get());
    if (is_packed_unknown(code) && manner_.unpacks)
        other.unpacks = false;
    else if (is_password_withheld(code) && offers_basic(easy_.get()))
        other.authentication = CURLAUTH_BASIC;
    else
        return std::nullopt;
    return other;
}

std::variant<Answer, Failure> CurlExchange::collect_answer(CURLcode code) {
    if (code == CURLE_OK || body_.is_whole_part())
        return answer();
    // A question for the password was not to be answered.
    if (code == CURLE_ABORTED_BY_CALLBACK)
        return head();
    if (!may_hold_picture(code))
        return failure(code);
    Answer cut_off = answer();
    cut_off.failure = failure(code);
    return cut_off;
}

/// A host that is told the password unasked has it before its first question for it, and any other
/// host after that.
bool CurlExchange::is_password_told() const {
    const int questions = manner_.authentication == CURLAUTH_BASIC ? 0 : 1;
    return heads_.unauthorized() > questions;
}

Answer CurlExchange::head() const {
    return answer_head(easy_.get(), address_, is_password_told());
}

/// Whether the host has asked for the password, and libcurl, which has one, has not told it.
bool CurlExchange::is_password_withheld(CURLcode code) const {
    constexpr long unauthorized = 401;
    const Answer answer = head();
    return (code == CURLE_OK || code == CURLE_ABORTED_BY_CALLBACK) &&
           answer.status == unauthorized && answer.credentials == Credentials::untold;
}

/// Whether not a byte of the body could be unpacked.
bool CurlExchange::is_packed_unknown(CURLcode code) const {
    const bool is_refused = heads_.is_too_large() || body_.refusal();
    return (code == CURLE_BAD_CONTENT_ENCODING || code == CURLE_WRITE_ERROR) && body_.is_empty() &&
           !is_refused;
}

/// A host may count or end its body wrong although the picture is whole.
bool CurlExchange::may_hold_picture(CURLcode code) const {
    return !body_.is_empty() && !body_.refusal() && code != CURLE_OPERATION_TIMEDOUT &&
           code != CURLE_FILESIZE_EXCEEDED;
}

Answer CurlExchange::answer() {
    Answer answer = head();
    answer.body = body_.collect();
    if (answer.is_packed && !manner_.unpacks)
        answer.failure = failure(CURLE_BAD_CONTENT_ENCODING);
    return answer;
}

Failure CurlExchange::failure(CURLcode code) const {
    if (const auto& refusal = body_.refusal())
        return *refusal;
    if (heads_.is_too_large())
        return answer_head_too_large();
    long tunnel_status = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_HTTP_CONNECTCODE, &tunnel_status);
    return failure_of(
        {.code = code,
         .stage = heads_.stage(),
         .tunnel_status = tunnel_status,
         .is_by_proxy = manner_.uses_proxies && is_asked_by_proxy(final_url(easy_.get())),
         .words = error_text_.data()});
}

void CurlExchange::set_head_lines(const std::string& media_types) {
    append(header_lines_, "Accept: " + media_types + all_else);
    if (known_)
        append(header_lines_, "If-None-Match: " + known_->entity_tag);
}

void CurlExchange::set_receiver() {
    CURL* const handle = easy_.get();
    set(handle, CURLOPT_PRIVATE, this);
    set(handle, CURLOPT_ERRORBUFFER, error_text_.data());
    set(handle, CURLOPT_PREREQFUNCTION, &CurlExchange::begin_request);
    set(handle, CURLOPT_PREREQDATA, this);
    set(handle, CURLOPT_HEADERFUNCTION, &CurlExchange::receive_header);
    set(handle, CURLOPT_HEADERDATA, this);
    set(handle, CURLOPT_WRITEFUNCTION, &CurlExchange::receive_body);
    set(handle, CURLOPT_WRITEDATA, this);
}

/// libcurl would answer a host's questions for the password as often as it follows redirects, and
/// some wrong.
int CurlExchange::begin_request(void* exchange, char*, char*, int, int) {
    auto& self = *static_cast<CurlExchange*>(exchange);
    if (self.is_password_told() || self.heads_.asks_for_wrong_digest())
        return CURL_PREREQFUNC_ABORT;
    self.heads_.begin_request();
    return CURL_PREREQFUNC_OK;
}

// libcurl ends the transfer where fewer bytes are accepted than it gives.
std::size_t CurlExchange::receive_header(char* data, std::size_t, std::size_t size,
                                         void* exchange) {
    return static_cast<CurlExchange*>(exchange)->heads_.append({data, size}) ? size : 0;
}

std::size_t CurlExchange::receive_body(char* data, std::size_t, std::size_t size, void* exchange) {
    auto& self = *static_cast<CurlExchange*>(exchange);
    const char* content_type = nullptr;
    curl_easy_getinfo(self.easy_.get(), CURLINFO_CONTENT_TYPE, &content_type);
    return self.body_.append({data, size}, content_type ? content_type : "") ? size : 0;
}

} // namespace lookfar
