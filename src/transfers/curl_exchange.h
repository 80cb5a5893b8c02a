#pragma once

#include "runtime/transfer.h"
#include "transfers/address.h"
#include "transfers/answer.h"
#include "transfers/answer_body.h"
#include "transfers/curl_handles.h"
#include "transfers/exchange_failures.h"
#include "transfers/last_answer.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace lookfar {

/// What the main thread and the worker share of one transfer.
struct TransferTicket {
    TransferRequest request;
    /// Touched on the main thread only; empty once the transfer is reported or abandoned.
    TransferDone done;
    /// Written by the worker before it posts the report, read on the main thread after.
    TransferOutcome outcome;
    std::atomic<bool> is_abandoned = false;
};

/// One transfer on its way through the library, from its construction to its destruction. It
/// belongs to the worker.
class CurlExchange {
  public:
    /// Asks for pictures of these media types, with commas between them. Throws a Failure if the
    /// request cannot be started.
    CurlExchange(CURLM* multi, std::shared_ptr<TransferTicket> ticket,
                 const std::string& media_types, KnownAnswerReference known);
    CurlExchange(const CurlExchange&) = delete;
    CurlExchange& operator=(const CurlExchange&) = delete;
    ~CurlExchange();

    bool is_on(const CURL* handle) const { return easy_.get() == handle; }
    const std::shared_ptr<TransferTicket>& ticket() const { return ticket_; }

    /// What the host was asked to send its picture for only if that has changed.
    const KnownAnswerReference& known() const { return known_; }

    /// The answer to, or the failure of, a transfer that the library ended with the code.
    std::variant<Answer, Failure> take_answer(CURLcode code);

  private:
    template <class Value>
    void set(CURLoption option, Value value);
    void set_destination();
    void set_trust();
    void set_manners(const std::string& media_types);
    void set_limits();
    void set_receiver();

    static int begin_request(void* exchange, char*, char*, int, int);
    static std::size_t receive_header(char* data, std::size_t, std::size_t size, void* exchange);
    static std::size_t receive_body(char* data, std::size_t, std::size_t size, void* exchange);
    bool count_header(std::string_view line);
    bool append_body(std::span<const char> part);
    Failure failure(CURLcode code) const;

    CURLM* multi_;
    std::shared_ptr<TransferTicket> ticket_;
    Address address_;
    KnownAnswerReference known_;
    AnswerBody body_;
    std::size_t header_size_ = 0;
    ExchangeStage stage_ = ExchangeStage::connecting;
    bool is_head_too_large_ = false;
    std::array<char, CURL_ERROR_SIZE> error_text_{};
    HeaderLines header_lines_;
    EasyHandle easy_ = make_easy_handle();
};

} // namespace lookfar
