#include "runtime/desktop/curl_transfers.h"

#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <cstdint>
#include <curl/curl.h>
#include <mutex>
#include <new>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace lookfar {

namespace {

constexpr const char* user_agent = "Lookfar/0.1";
constexpr const char* spoken_protocols = "http,https";
constexpr int longest_poll_milliseconds = 10'000;

Failure failure_of(CURLcode code) {
    return Failure(code, curl_easy_strerror(code));
}

Failure body_too_large() {
    return Failure(CURLE_FILESIZE_EXCEEDED, "The answer is larger than 64 MiB.");
}

/// Holds the library started. The library counts how often, so that each owner holds its own.
class Library {
  public:
    Library() {
        if (const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT); code != CURLE_OK)
            throw failure_of(code);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { curl_global_cleanup(); }
};

struct EasyCleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct MultiCleanup {
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};
using EasyHandle = std::unique_ptr<CURL, EasyCleanup>;
using MultiHandle = std::unique_ptr<CURLM, MultiCleanup>;

EasyHandle make_easy_handle() {
    EasyHandle handle(curl_easy_init());
    if (!handle)
        throw failure_of(CURLE_FAILED_INIT);
    return handle;
}

MultiHandle make_multi_handle() {
    MultiHandle handle(curl_multi_init());
    if (!handle)
        throw failure_of(CURLE_FAILED_INIT);
    return handle;
}

void check_url(const std::string& url) {
    if (url.size() > CurlTransfers::longest_url)
        throw Failure(CURLE_URL_MALFORMAT, "The address is too long.");
    if (url.find('\0') != std::string::npos || as_utf8(url) != url)
        throw Failure(CURLE_URL_MALFORMAT, "The address holds characters that are not allowed.");
}

/// The library takes zero as "no limit" and refuses what does not fit an int.
long timeout_milliseconds(std::chrono::milliseconds timeout) {
    return static_cast<long>(std::clamp<std::int64_t>(timeout.count(), 1, INT_MAX));
}

/// What the main thread and the worker know in common of one transfer.
struct Ticket {
    TransferRequest request;
    /// Touched on the main thread only; empty once the transfer is reported or abandoned.
    TransferDone done;
    /// Written by the worker before it posts the report, read on the main thread after.
    TransferOutcome outcome;
    std::atomic<bool> is_abandoned = false;
};

void report(Ticket& ticket) {
    if (const TransferDone done = std::exchange(ticket.done, nullptr))
        done(std::move(ticket.outcome));
}

/// One transfer on its way through the library, from its construction to its destruction.
class Exchange {
  public:
    Exchange(CURLM* multi, std::shared_ptr<Ticket> ticket)
        : multi_(multi), ticket_(std::move(ticket)) {
        check_url(ticket_->request.url);
        set_destination();
        set_limits();
        set_receiver();
        if (curl_multi_add_handle(multi_, easy_.get()) != CURLM_OK)
            throw failure_of(CURLE_FAILED_INIT);
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;
    ~Exchange() { curl_multi_remove_handle(multi_, easy_.get()); }

    bool is_on(const CURL* handle) const { return easy_.get() == handle; }
    const std::shared_ptr<Ticket>& ticket() const { return ticket_; }

    TransferOutcome take_outcome(CURLcode code) {
        if (refusal_)
            return *refusal_;
        if (code == CURLE_OK)
            return std::move(body_);
        if (code == CURLE_FILESIZE_EXCEEDED)
            return body_too_large();
        if (error_text_.front() != '\0')
            return Failure(code, as_utf8(error_text_.data()));
        return failure_of(code);
    }

  private:
    template <class Value>
    void set(CURLoption option, Value value) {
        if (const CURLcode code = curl_easy_setopt(easy_.get(), option, value); code != CURLE_OK)
            throw failure_of(code);
    }

    void set_destination() {
        set(CURLOPT_URL, ticket_->request.url.c_str());
        set(CURLOPT_DEFAULT_PROTOCOL, "http");
        set(CURLOPT_PROTOCOLS_STR, spoken_protocols);
        set(CURLOPT_REDIR_PROTOCOLS_STR, spoken_protocols);
        set(CURLOPT_FOLLOWLOCATION, 1L);
        set(CURLOPT_MAXREDIRS, CurlTransfers::most_redirects);
        set(CURLOPT_HTTPAUTH, CURLAUTH_ANY);
        set(CURLOPT_USERAGENT, user_agent);
    }

    void set_limits() {
        const long timeout = timeout_milliseconds(ticket_->request.timeout);
        set(CURLOPT_TIMEOUT_MS, timeout);
        set(CURLOPT_CONNECTTIMEOUT_MS, timeout);
        set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(CurlTransfers::largest_body));
        set(CURLOPT_NOSIGNAL, 1L);
        // A name look-up that hangs is left behind rather than waited for.
        set(CURLOPT_QUICK_EXIT, 1L);
    }

    void set_receiver() {
        set(CURLOPT_ERRORBUFFER, error_text_.data());
        set(CURLOPT_WRITEFUNCTION, &Exchange::receive_body);
        set(CURLOPT_WRITEDATA, this);
    }

    // The library ends the transfer if fewer bytes are taken than it gives.
    static std::size_t receive_body(char* data, std::size_t, std::size_t size, void* exchange) {
        return static_cast<Exchange*>(exchange)->append_body({data, size}) ? size : 0;
    }

    bool append_body(std::span<const char> part) {
        if (part.size() > CurlTransfers::largest_body - body_.size())
            return refuse(body_too_large());
        try {
            body_.insert(body_.end(), part.begin(), part.end());
        } catch (const std::bad_alloc&) {
            return refuse(failure_of(CURLE_OUT_OF_MEMORY));
        }
        return true;
    }

    bool refuse(Failure failure) {
        refusal_ = std::move(failure);
        return false;
    }

    CURLM* multi_;
    std::shared_ptr<Ticket> ticket_;
    Bytes body_;
    std::optional<Failure> refusal_;
    std::array<char, CURL_ERROR_SIZE> error_text_{};
    EasyHandle easy_ = make_easy_handle();
};

} // namespace

/// The thread that moves all transfers forward.
class CurlTransfers::Worker {
  public:
    explicit Worker(Post post) : post_(std::move(post)) {
        thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
    }

    void add(std::shared_ptr<Ticket> ticket) {
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
            report_finished();
            curl_multi_poll(multi_.get(), nullptr, 0, longest_poll_milliseconds, nullptr);
        }
    }

    void drop_abandoned() {
        std::erase_if(running_,
                      [](const auto& exchange) { return exchange->ticket()->is_abandoned.load(); });
    }

    void start_waiting() {
        for (const auto& ticket : take_waiting())
            if (!ticket->is_abandoned)
                start(ticket);
    }

    std::vector<std::shared_ptr<Ticket>> take_waiting() {
        const std::lock_guard lock(mutex_);
        return std::exchange(waiting_, {});
    }

    void start(const std::shared_ptr<Ticket>& ticket) {
        try {
            running_.push_back(std::make_unique<Exchange>(multi_.get(), ticket));
        } catch (const Failure& failure) {
            post_report(ticket, failure);
        }
    }

    void move_forward() {
        int running_count = 0;
        curl_multi_perform(multi_.get(), &running_count);
    }

    void report_finished() {
        int messages_left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &messages_left))
            if (message->msg == CURLMSG_DONE)
                finish(message->easy_handle, message->data.result);
    }

    void finish(const CURL* handle, CURLcode code) {
        const auto found = std::ranges::find_if(
            running_, [handle](const auto& exchange) { return exchange->is_on(handle); });
        const auto exchange = std::move(*found);
        running_.erase(found);
        post_report(exchange->ticket(), exchange->take_outcome(code));
    }

    void post_report(const std::shared_ptr<Ticket>& ticket, TransferOutcome outcome) {
        ticket->outcome = std::move(outcome);
        post_([ticket] { report(*ticket); });
    }

    const Post post_;
    const Library library_;
    const MultiHandle multi_ = make_multi_handle();
    std::mutex mutex_;
    std::vector<std::shared_ptr<Ticket>> waiting_;
    /// Touched on the worker's thread only, and after its end.
    std::vector<std::unique_ptr<Exchange>> running_;
    std::jthread thread_;
};

class CurlTransfers::Handle : public Transfer {
  public:
    Handle(std::weak_ptr<Worker> worker, std::shared_ptr<Ticket> ticket)
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
    std::shared_ptr<Ticket> ticket_;
};

CurlTransfers::CurlTransfers(Post post) : worker_(std::make_shared<Worker>(std::move(post))) {}

CurlTransfers::~CurlTransfers() = default;

std::unique_ptr<Transfer> CurlTransfers::start(TransferRequest request, TransferDone done) {
    auto ticket = std::make_shared<Ticket>();
    ticket->request = std::move(request);
    ticket->done = std::move(done);
    worker_->add(ticket);
    return std::make_unique<Handle>(worker_, std::move(ticket));
}

} // namespace lookfar
