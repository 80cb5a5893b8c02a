#include "transfers/curl_transfers.h"

#include "demo/hostile_pictures.h"
#include "demo/misbehaviour.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lookfar {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Far longer than anything here takes, so that a test fails rather than hangs.
constexpr auto patience = 60s;
constexpr int timed_out = 28;

/// Runs the posted work on the test's own thread.
class MessageLoop {
  public:
    void post(std::function<void()> work) {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(work));
        arrived_.notify_one();
    }

    void run_until(const std::function<bool()>& done, Clock::duration limit = patience) {
        const auto deadline = Clock::now() + limit;
        while (!done() && run_next(deadline)) {
        }
    }

    void run_for(Clock::duration duration) {
        run_until([] { return false; }, duration);
    }

    bool wait_for_work(Clock::time_point deadline = Clock::now() + patience) {
        std::unique_lock lock(mutex_);
        return arrived_.wait_until(lock, deadline, [this] { return !queue_.empty(); });
    }

  private:
    bool run_next(Clock::time_point deadline) {
        if (!wait_for_work(deadline))
            return false;
        std::unique_lock lock(mutex_);
        const auto work = std::move(queue_.front());
        queue_.pop_front();
        lock.unlock();
        work();
        return true;
    }

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> queue_;
};

demo::Responder always(int status, const std::string& body,
                       const std::vector<demo::Header>& headers = {}) {
    return [=](const demo::Request&) {
        return demo::Answer{.status = status,
                            .content_type = "text/plain",
                            .body = body,
                            .headers = headers,
                            .delay = {}};
    };
}

demo::Responder raw(const std::string& bytes) {
    return [bytes](const demo::Request&) {
        return demo::RawAnswer([bytes](const demo::Socket& socket) { socket.write(bytes); });
    };
}

/// The body, or the failure's number for a person to read.
std::string text_of(const TransferOutcome& outcome) {
    if (const auto* failure = std::get_if<Failure>(&outcome))
        return "failure " + std::to_string(failure->Number) + ": " + failure->Description;
    const auto& body = std::get<Bytes>(outcome);
    return {body.begin(), body.end()};
}

void expect_failure(const TransferOutcome& outcome, std::optional<int> number = {}) {
    const auto* failure = std::get_if<Failure>(&outcome);
    ASSERT_NE(failure, nullptr) << text_of(outcome).substr(0, 100);
    EXPECT_NE(failure->Number, 0);
    EXPECT_EQ(failure->Number, number.value_or(failure->Number)) << failure->Description;
    EXPECT_FALSE(failure->Description.empty());
}

class Transfers : public testing::Test {
  protected:
    Transfers() { server.answer("/hello", always(200, "hello")); }

    std::unique_ptr<Transfer> start(const std::string& url, TransferDone done) {
        return transfers->start({.url = url, .timeout = patience}, std::move(done));
    }

    TransferOutcome fetch(const std::string& url, std::chrono::milliseconds timeout = patience) {
        std::optional<TransferOutcome> result;
        const auto transfer =
            transfers->start({.url = url, .timeout = timeout},
                             [&](TransferOutcome outcome) { result = std::move(outcome); });
        loop.run_until([&] { return result.has_value(); });
        return result.value_or(Failure(0, ""));
    }

    std::string text_at(const std::string& path) { return text_of(fetch(server.url(path))); }

    /// Starts a transfer that stalls, and lets it go quiet.
    std::unique_ptr<Transfer> start_stall(TransferDone done) {
        server.answer("/stall", [this](const demo::Request&) {
            return demo::RawAnswer([this](const demo::Socket& socket) {
                is_stalling = true;
                socket.wait_until_closed();
                is_stalling = false;
            });
        });
        auto transfer = start(server.url("/stall"), std::move(done));
        wait_until_stalling(true);
        loop.run_for(300ms);
        return transfer;
    }

    void wait_until_stalling(bool expected) {
        const auto deadline = Clock::now() + 5s;
        while (is_stalling != expected && Clock::now() < deadline)
            loop.run_for(5ms);
        EXPECT_EQ(is_stalling, expected);
    }

    std::string host() const { return "127.0.0.1:" + std::to_string(server.port()); }

    std::atomic<bool> is_stalling = false;
    demo::CameraServer server;
    MessageLoop loop;
    std::unique_ptr<CurlTransfers> transfers = std::make_unique<CurlTransfers>(
        [this](std::function<void()> work) { loop.post(std::move(work)); });
};

TEST_F(Transfers, HandOverTheBodyWhateverTheStatus) {
    const std::string with_zero("a\0b", 3);
    server.answer("/gone", always(404, "no such picture"));
    server.answer("/empty", always(200, ""));
    server.answer("/zero", always(200, with_zero));
    server.answer("/just-not-too-large",
                  always(200, std::string(CurlTransfers::largest_body, 'a')));
    EXPECT_EQ(text_at("/gone"), "no such picture");
    EXPECT_EQ(text_at("/empty"), "");
    EXPECT_EQ(text_at("/zero"), with_zero);
    EXPECT_EQ(text_at("/just-not-too-large").size(), CurlTransfers::largest_body);
    EXPECT_EQ(text_of(fetch(host() + "/hello")), "hello") << "A URL without a scheme is http.";
}

TEST_F(Transfers, OutliveMisbehavingCameras) {
    demo::install_misbehaviour(server);
    server.answer("/huge-announced", raw("HTTP/1.1 200 OK\r\nContent-Length: 67108865\r\n\r\n"));
    const std::string picture = demo::small_picture().body;
    const auto expect_body = [&](const std::string& path, const std::string& body) {
        EXPECT_TRUE(text_at(path) == body) << path;
    };
    expect_body("/redirect-once", picture);
    expect_body("/short-length", picture.substr(0, picture.size() - picture.size() / 4));
    expect_body("/nothing", "");
    expect_body("/truncated", demo::truncated_picture().body);
    expect_body("/huge-picture", demo::huge_picture().body);

    for (const auto* path : {"/cut-short", "/long-length", "/redirect-circle", "/redirect-to-file",
                             "/hang-up", "/not-http"}) {
        SCOPED_TRACE(path);
        expect_failure(fetch(server.url(path)));
        expect_body("/good", picture);
    }
    for (const auto* path : {"/endless", "/huge-announced"}) {
        EXPECT_EQ(text_at(path), "failure 63: The answer is larger than 64 MiB.");
        expect_body("/good", picture);
    }
    for (const auto* path : {"/long-header", "/many-headers"}) {
        EXPECT_EQ(text_at(path), "failure 27: The answer's header is too large.");
        expect_body("/good", picture);
    }
    for (const auto* path : {"/stall", "/drip"}) {
        const auto start = Clock::now();
        expect_failure(fetch(server.url(path), 200ms), timed_out);
        EXPECT_GT(Clock::now() - start, 150ms);
        EXPECT_LT(Clock::now() - start, 5s);
        expect_body("/good", picture);
    }
    expect_failure(fetch(server.url("/stall"), 0ms), timed_out);
}

TEST_F(Transfers, RefuseUnusableUrls) {
    const std::string hello = server.url("/hello");
    const std::vector<std::string> urls = {"",
                                           " ",
                                           hello + " ",
                                           server.url("/hel lo"),
                                           hello + std::string("\0x", 2),
                                           hello + "?\r\nX-Injected: 1",
                                           hello + "?\xff\xfe",
                                           hello + "?" + std::string(1'000'000, 'a'),
                                           "http://",
                                           "http://127.0.0.1:99999/",
                                           "file:///etc/hostname",
                                           "ftp://127.0.0.1/",
                                           "http://no-such-host.invalid/",
                                           "http://127.0.0.1:1/"};
    for (const std::string& url : urls) {
        SCOPED_TRACE(url.substr(0, 60));
        expect_failure(fetch(url));
    }
    EXPECT_EQ(server.requests(), 0u);
    EXPECT_EQ(text_at("/hello"), "hello");
}

TEST_F(Transfers, TellHostsTheProgramsNameAndVersion) {
    server.answer("/who", [](const demo::Request& request) {
        return always(200, std::string(request.header("User-Agent").value_or("")))(request);
    });
    EXPECT_EQ(text_at("/who"), LOOKFAR_USER_AGENT);
}

TEST_F(Transfers, KeepTheConnectionBetweenTwoGets) {
    const auto start_of_gets = Clock::now();
    for (int round = 0; round < 3; ++round)
        EXPECT_EQ(text_at("/hello"), "hello");
    EXPECT_LT(Clock::now() - start_of_gets, 5s);
    EXPECT_EQ(server.requests("/hello"), 3u);
    EXPECT_EQ(server.connections(), 1u);
}

TEST_F(Transfers, FollowTenRedirectsAndNoMore) {
    for (int step = 0; step < 11; ++step)
        server.answer("/" + std::to_string(step),
                      demo::redirect_to("/" + std::to_string(step + 1)));
    server.answer("/11", always(200, "arrived"));
    EXPECT_EQ(text_at("/1"), "arrived");
    expect_failure(fetch(server.url("/0")));
}

TEST_F(Transfers, AnswerAnyChallengeWithThePasswordAndTellNoOtherHost) {
    std::string challenge;
    std::string sent_here;
    bool is_told_elsewhere = false;
    demo::CameraServer elsewhere;
    server.answer("/locked", [&](const demo::Request& request) {
        sent_here = request.header("Authorization").value_or("");
        return sent_here.empty() ? always(401, "", {{"WWW-Authenticate", challenge}})(request)
                                 : demo::redirect_to(elsewhere.url("/"))(request);
    });
    elsewhere.answer("/", [&](const demo::Request& request) {
        is_told_elsewhere = request.header("Authorization").has_value();
        return always(200, "elsewhere")(request);
    });
    const std::vector<std::pair<std::string, std::string>> answers = {
        {R"(Basic realm="camera")", "Basic Z3Vlc3Q6c2VjcmV0"},
        {R"(Digest realm="camera", nonce="1")", R"(Digest username="guest")"}};
    for (const auto& [asked, answered] : answers) {
        challenge = asked;
        EXPECT_EQ(text_of(fetch("http://guest:secret@" + host() + "/locked")), "elsewhere");
        EXPECT_EQ(sent_here.substr(0, answered.size()), answered);
        EXPECT_FALSE(is_told_elsewhere);
    }
}

TEST_F(Transfers, NeverReportOnceAbandoned) {
    bool is_reported = false;
    const auto note = [&](const TransferOutcome&) { is_reported = true; };
    start_stall(note).reset();
    wait_until_stalling(false);

    auto posted_already = start(server.url("/hello"), note);
    ASSERT_TRUE(loop.wait_for_work());
    posted_already.reset();
    start(server.url("/hello"), note).reset();
    EXPECT_EQ(text_at("/hello"), "hello");
    loop.run_for(50ms);
    EXPECT_FALSE(is_reported);
}

TEST_F(Transfers, RunSideBySideAndMayBeDroppedFromTheirReport) {
    const auto stalled = start_stall([](const TransferOutcome&) { FAIL(); });
    std::vector<std::unique_ptr<Transfer>> started(20);
    std::size_t arrived = 0;
    for (auto& transfer : started)
        transfer = start(server.url("/hello"), [&](const TransferOutcome& outcome) {
            transfer.reset();
            arrived += text_of(outcome) == "hello" ? 1 : 0;
        });
    loop.run_until([&] { return arrived == started.size(); });
    EXPECT_EQ(arrived, started.size());
}

TEST_F(Transfers, EndPromptlyInTheMiddleOfAStall) {
    const auto stalled = start_stall([](const TransferOutcome&) { FAIL(); });
    const auto start_of_end = Clock::now();
    transfers.reset();
    EXPECT_LT(Clock::now() - start_of_end, 2s);
    loop.run_for(50ms);
}

} // namespace
} // namespace lookfar
