#pragma once

#include "transfers/address.h"
#include "transfers/answer.h"
#include "transfers/answer_body.h"
#include "transfers/answer_heads.h"
#include "transfers/curl_handles.h"
#include "transfers/curl_request.h"
#include "transfers/last_answer.h"
#include "transfers/transfer_ticket.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace lookfar {

/// One transfer on its way through libcurl, from its construction to its destruction. It belongs to
/// the worker.
class CurlExchange {
  public:
    /// Asks in that manner for pictures of these media types, with commas between them. Throws a
    /// Failure if the request cannot be started.
    CurlExchange(CURLM* multi, std::shared_ptr<TransferTicket> ticket, RequestManner manner,
                 const std::string& media_types, KnownAnswerReference known);
    CurlExchange(const CurlExchange&) = delete;
    CurlExchange& operator=(const CurlExchange&) = delete;
    ~CurlExchange();

    /// The exchange that the handle is of.
    static CurlExchange& of(CURL* handle);

    const std::shared_ptr<TransferTicket>& ticket() const { return ticket_; }

    /// What the host was asked to send its picture for only if that has changed.
    const KnownAnswerReference& known() const { return known_; }

    /// How the host is to be asked once more, in the time that is left, where libcurl has ended the
    /// transfer with the code and another manner may bring the picture.
    std::optional<RequestManner> other_manner(CURLcode code) const;

    /// The answer to, or the failure of, a transfer that libcurl ended with the code. What has come
    /// of a body that was cut off is an answer too.
    std::variant<Answer, Failure> collect_answer(CURLcode code);

  private:
    void set_head_lines(const std::string& media_types);
    void set_receiver();

    static int begin_request(void* exchange, char*, char*, int, int);
    static std::size_t receive_header(char* data, std::size_t, std::size_t size, void* exchange);
    static std::size_t receive_body(char* data, std::size_t, std::size_t size, void* exchange);
    bool is_password_told() const;
    Answer head() const;
    bool is_password_withheld(CURLcode code) const;
    bool is_packed_unknown(CURLcode code) const;
    bool may_hold_picture(CURLcode code) const;
    Answer answer();
    Failure failure(CURLcode code) const;

    CURLM* multi_;
    std::shared_ptr<TransferTicket> ticket_;
    Address address_;
    RequestManner manner_;
    KnownAnswerReference known_;
    AnswerHeads heads_;
    AnswerBody body_;
    std::array<char, CURL_ERROR_SIZE> error_text_{};
    HeaderLines header_lines_;
    EasyHandle easy_ = owned<EasyHandle>(curl_easy_init());
};

} // namespace lookfar
