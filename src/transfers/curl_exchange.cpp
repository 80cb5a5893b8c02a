#include "transfers/curl_exchange.h"

#include "transfers/curl_transfers.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace lookfar {

namespace {

constexpr const char* spoken_protocols = "http,https";
/// A stream gives a picture too. Whatever else a host has, its answer may tell the user more than
/// a refusal does.
constexpr const char* all_else = ",multipart/x-mixed-replace;q=0.5,*/*;q=0.1";
/// The library's word against those that the environment names.
constexpr const char* no_proxy = "";
/// The library's word for those that it unpacks.
constexpr const char* all_encodings = "";
/// Eight times what the library takes at once by itself.
constexpr long most_bytes_at_once = 131072;

/// The library takes zero as "no limit" and refuses what does not fit an int.
long timeout_milliseconds(std::chrono::milliseconds timeout) {
    return static_cast<long>(std::clamp<std::int64_t>(timeout.count(), 1, INT_MAX));
}

} // namespace

CurlExchange::CurlExchange(CURLM* multi, std::shared_ptr<TransferTicket> ticket,
                           const std::string& media_types, KnownAnswerReference known)
    : multi_(multi),
      ticket_(std::move(ticket)),
      address_(address_of(ticket_->request.url)),
      known_(std::move(known)) {
    set_destination();
    set_trust();
    set_manners(media_types);
    set_limits();
    set_receiver();
    if (curl_multi_add_handle(multi_, easy_.get()) != CURLM_OK)
        throw failure_of(CURLE_FAILED_INIT);
}

CurlExchange::~CurlExchange() {
    curl_multi_remove_handle(multi_, easy_.get());
}

std::variant<Answer, Failure> CurlExchange::take_answer(CURLcode code) {
    if (code != CURLE_OK && !body_.is_whole_part())
        return failure(code);
    Answer answer = answer_head(easy_.get(), address_);
    answer.body = body_.take();
    return answer;
}

Failure CurlExchange::failure(CURLcode code) const {
    if (const auto& refusal = body_.refusal())
        return *refusal;
    if (is_head_too_large_)
        return answer_head_too_large();
    long tunnel_status = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_HTTP_CONNECTCODE, &tunnel_status);
    return failure_of({.code = code,
                       .stage = stage_,
                       .tunnel_status = tunnel_status,
                       .words = error_text_.data()});
}

template <class Value>
void CurlExchange::set(CURLoption option, Value value) {
    if (const CURLcode code = curl_easy_setopt(easy_.get(), option, value); code != CURLE_OK)
        throw failure_of(code);
}

void CurlExchange::set_destination() {
    set(CURLOPT_URL, address_.url.c_str());
    if (address_.has_credentials()) {
        set(CURLOPT_USERNAME, address_.user_name.c_str());
        set(CURLOPT_PASSWORD, address_.password.c_str());
    }
    if (!ticket_->request.uses_proxies)
        set(CURLOPT_PROXY, no_proxy);
    set(CURLOPT_PROTOCOLS_STR, spoken_protocols);
    set(CURLOPT_REDIR_PROTOCOLS_STR, spoken_protocols);
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, CurlTransfers::most_redirects);
    set(CURLOPT_HTTPAUTH, CURLAUTH_ANY);
}

void CurlExchange::set_trust() {
    if (const char* const certificates = std::getenv("SSL_CERT_FILE"))
        set(CURLOPT_CAINFO, certificates);
}

void CurlExchange::set_manners(const std::string& media_types) {
    set(CURLOPT_USERAGENT, LOOKFAR_USER_AGENT);
    append(header_lines_, "Accept: " + media_types + all_else);
    if (known_)
        append(header_lines_, "If-None-Match: " + known_->entity_tag);
    set(CURLOPT_HTTPHEADER, header_lines_.get());
    set(CURLOPT_ACCEPT_ENCODING, all_encodings);
}

void CurlExchange::set_limits() {
    const long timeout = timeout_milliseconds(ticket_->request.timeout);
    set(CURLOPT_TIMEOUT_MS, timeout);
    set(CURLOPT_CONNECTTIMEOUT_MS, timeout);
    set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(AnswerBody::largest));
    set(CURLOPT_NOSIGNAL, 1L);
    // A name look-up that hangs is left behind rather than waited for.
    set(CURLOPT_QUICK_EXIT, 1L);
}

void CurlExchange::set_receiver() {
    set(CURLOPT_ERRORBUFFER, error_text_.data());
    set(CURLOPT_BUFFERSIZE, most_bytes_at_once);
    set(CURLOPT_PREREQFUNCTION, &CurlExchange::begin_request);
    set(CURLOPT_PREREQDATA, this);
    set(CURLOPT_HEADERFUNCTION, &CurlExchange::receive_header);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &CurlExchange::receive_body);
    set(CURLOPT_WRITEDATA, this);
}

int CurlExchange::begin_request(void* exchange, char*, char*, int, int) {
    static_cast<CurlExchange*>(exchange)->stage_ = ExchangeStage::reading_head;
    return CURL_PREREQFUNC_OK;
}

// The library ends the transfer if fewer bytes are taken than it gives.
std::size_t CurlExchange::receive_header(char* data, std::size_t, std::size_t size,
                                         void* exchange) {
    return static_cast<CurlExchange*>(exchange)->count_header({data, size}) ? size : 0;
}

std::size_t CurlExchange::receive_body(char* data, std::size_t, std::size_t size, void* exchange) {
    return static_cast<CurlExchange*>(exchange)->append_body({data, size}) ? size : 0;
}

bool CurlExchange::count_header(std::string_view line) {
    const bool is_last = line == "\r\n" || line == "\n";
    stage_ = is_last ? ExchangeStage::reading_body : ExchangeStage::reading_head;
    header_size_ += line.size();
    is_head_too_large_ = header_size_ > CurlTransfers::largest_header;
    return !is_head_too_large_;
}

bool CurlExchange::append_body(std::span<const char> part) {
    const char* content_type = nullptr;
    curl_easy_getinfo(easy_.get(), CURLINFO_CONTENT_TYPE, &content_type);
    return body_.append(part, content_type ? content_type : "");
}

} // namespace lookfar
