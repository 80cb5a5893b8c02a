#include "transfers/curl_transfers.h"

#include "transfers/curl_exchange.h"
#include "transfers/exchange_failures.h"
#include "transfers/transfer_ticket.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <new>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace lookfar {

namespace {

constexpr int longest_poll_milliseconds = 10'000;

} // namespace

/// The thread that moves all transfers forward.
class CurlTransfers::Worker {
  public:
    Worker(Post post, std::unique_ptr<PictureDecoder> decoder)
        : post_(std::move(post)), decoder_(std::move(decoder)) {
        thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
    }

    void add(std::shared_ptr<TransferTicket> ticket) {
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(ticket));
        }
        wake();
    }

    void wake() { curl_multi_wakeup(multi_.get()); }

  private:
    void run(const std::stop_token& stop) {
        const std::stop_callback wake_to_stop(stop, [this] { wake(); });
        while (!stop.stop_requested()) {
            drop_abandoned();
            start_waiting();
            move_forward();
            finish_decoding();
            report_finished();
            wait();
            decoder_->attend();
        }
    }

    /// For a host, the decoder, its deadline, or to be woken.
    void wait() {
        curl_waitfd decoder{.fd = decoder_->descriptor(), .events = CURL_WAIT_POLLIN, .revents = 0};
        curl_multi_poll(multi_.get(), &decoder, decoder.fd == -1 ? 0 : 1, longest_wait(), nullptr);
    }

    int longest_wait() const {
        using std::chrono::milliseconds;
        const auto deadline = decoder_->deadline();
        if (!deadline)
            return longest_poll_milliseconds;
        const auto left =
            std::chrono::ceil<milliseconds>(*deadline - std::chrono::steady_clock::now());
        return static_cast<int>(
            std::clamp(left, milliseconds::zero(), milliseconds(longest_poll_milliseconds))
                .count());
    }

    void drop_abandoned() {
        std::erase_if(running_,
                      [](const auto& exchange) { return exchange->ticket()->is_abandoned.load(); });
        if (decoding_ && decoding_->ticket->is_abandoned)
            decoding_.reset();
    }

    /// Hosts are told the media types, which the decoder knows a moment after its start.
    void start_waiting() {
        if (!decoder_->prepare())
            return;
        for (const auto& ticket : collect_waiting())
            if (!ticket->is_abandoned)
                start(ticket, {.timeout = ticket->request.timeout,
                               .uses_proxies = ticket->request.uses_proxies});
    }

    std::vector<std::shared_ptr<TransferTicket>> collect_waiting() {
        const std::lock_guard lock(mutex_);
        return std::exchange(waiting_, {});
    }

    void start(const std::shared_ptr<TransferTicket>& ticket, const RequestManner& manner) {
        report_failure_of(ticket, [&] {
            running_.push_back(std::make_unique<CurlExchange>(
                multi_.get(), ticket, manner, decoder_->media_types(),
                last_answer_.known_at(ticket->request.url)));
        });
    }

    /// Reports in the transfer's place what the step throws.
    template <class Step>
    void report_failure_of(const std::shared_ptr<TransferTicket>& ticket, const Step& step) {
        try {
            step();
        } catch (const Failure& failure) {
            post_report(ticket, failure);
        } catch (const std::bad_alloc&) {
            post_report(ticket, too_little_memory_for_answer());
        }
    }

    void move_forward() {
        int running_count = 0;
        curl_multi_perform(multi_.get(), &running_count);
    }

    /// Answers that come while one is being decoded wait for that in libcurl.
    void report_finished() {
        int messages_left = 0;
        const CURLMsg* message = nullptr;
        while (!decoding_ && (message = curl_multi_info_read(multi_.get(), &messages_left)))
            if (message->msg == CURLMSG_DONE)
                finish(CurlExchange::of(message->easy_handle), message->data.result);
    }

    void finish(CurlExchange& exchange, CURLcode code) {
        if (const auto other_manner = exchange.other_manner(code))
            start(exchange.ticket(), *other_manner);
        else
            report_failure_of(exchange.ticket(), [&] { report(exchange, code); });
        std::erase_if(running_, [&](const auto& each) { return each.get() == &exchange; });
    }

    void report(CurlExchange& exchange, CURLcode code) {
        const auto& ticket = exchange.ticket();
        auto end = exchange.collect_answer(code);
        if (const auto* const failure = std::get_if<Failure>(&end)) {
            post_report(ticket, *failure);
            return;
        }
        auto& answer = std::get<Answer>(end);
        if (auto outcome = last_answer_.outcome_without_decoding(answer, ticket->request.url,
                                                                 exchange.known()))
            post_report(ticket, *std::move(outcome));
        else
            decode(ticket, std::move(answer));
    }

    void decode(const std::shared_ptr<TransferTicket>& ticket, Answer answer) {
        decoder_->start(answer.body);
        decoding_ = Decoding{.ticket = ticket, .answer = std::move(answer)};
        finish_decoding();
    }

    void finish_decoding() {
        auto picture = decoder_->collect_result();
        if (!picture)
            return;
        auto decoding = std::exchange(decoding_, std::nullopt);
        // Nobody may wait for it any more.
        if (!decoding)
            return;
        const auto ticket = decoding->ticket;
        Answer answer = std::move(decoding->answer);
        report_failure_of(ticket, [&] {
            post_report(ticket, last_answer_.outcome_of(std::move(answer), ticket->request.url,
                                                        *std::move(picture)));
        });
    }

    void post_report(const std::shared_ptr<TransferTicket>& ticket, TransferOutcome outcome) {
        ticket->outcome = std::move(outcome);
        post_([ticket] {
            if (const TransferDone done = std::exchange(ticket->done, nullptr))
                done(std::move(ticket->outcome));
        });
    }

    /// An answer whose body is being decoded.
    struct Decoding {
        std::shared_ptr<TransferTicket> ticket;
        Answer answer;
    };

    const Post post_;
    const CurlLibrary library_;
    const MultiHandle multi_ = owned<MultiHandle>(curl_multi_init());
    std::mutex mutex_;
    std::vector<std::shared_ptr<TransferTicket>> waiting_;
    /// These are touched on the worker's thread only, and after its end.
    const std::unique_ptr<PictureDecoder> decoder_;
    LastAnswer last_answer_;
    std::optional<Decoding> decoding_;
    std::vector<std::unique_ptr<CurlExchange>> running_;
    std::jthread thread_;
};

class CurlTransfers::Handle : public Transfer {
  public:
    Handle(std::weak_ptr<Worker> worker, std::shared_ptr<TransferTicket> ticket)
        : worker_(std::move(worker)), ticket_(std::move(ticket)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override {
        ticket_->done = nullptr;
        ticket_->is_abandoned = true;
        if (const auto worker = worker_.lock())
            worker->wake();
    }

  private:
    std::weak_ptr<Worker> worker_;
    std::shared_ptr<TransferTicket> ticket_;
};

CurlTransfers::CurlTransfers(Post post, std::unique_ptr<PictureDecoder> decoder)
    : worker_(std::make_shared<Worker>(std::move(post), std::move(decoder))) {}

CurlTransfers::~CurlTransfers() = default;

std::unique_ptr<Transfer> CurlTransfers::start(TransferRequest request, TransferDone done) {
    auto ticket = std::make_shared<TransferTicket>();
    ticket->request = std::move(request);
    ticket->done = std::move(done);
    worker_->add(ticket);
    return std::make_unique<Handle>(worker_, std::move(ticket));
}

} // namespace lookfar
