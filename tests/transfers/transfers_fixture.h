#pragma once

#include "transfers/curl_transfers.h"

#include "demo/misbehaviour.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace lookfar {

using namespace std::chrono_literals;

/// Far longer than anything here takes, so that a test fails rather than hangs.
inline constexpr auto patience = 60s;
/// Shorter than the worker sleeps when nothing wakes it.
inline constexpr auto patience_of_stall = 8s;

/// Runs the posted work on the test's own thread.
class MessageLoop {
  public:
    void post(std::function<void()> work) {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(work));
        arrived_.notify_one();
    }

    void run_until(const std::function<bool()>& done) {
        while (!done() && wait_for_work())
            take()();
    }

    bool wait_for_work() {
        std::unique_lock lock(mutex_);
        return arrived_.wait_for(lock, patience, [this] { return !queue_.empty(); });
    }

  private:
    std::function<void()> take() {
        const std::lock_guard lock(mutex_);
        auto work = std::move(queue_.front());
        queue_.pop_front();
        return work;
    }

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> queue_;
};

inline demo::Responder always(const demo::Answer& answer) {
    return [answer](const demo::Request&) { return answer; };
}

inline demo::Responder always(int status, const std::string& body) {
    return always({.status = status, .body = body});
}

/// The body, the failure's number and text, or the text alone where the body is no picture.
inline std::string text_of(const TransferOutcome& outcome) {
    if (const auto* failure = std::get_if<Failure>(&outcome))
        return "failure " + std::to_string(failure->Number) + ": " + failure->Description;
    const auto& [body, picture] = *std::get<DecodedBodyReference>(outcome);
    if (const auto* failure = std::get_if<Failure>(&picture))
        return failure->Description;
    return {body->begin(), body->end()};
}

/// A variable of the environment for as long as this lives.
class EnvironmentVariable {
  public:
    EnvironmentVariable(const char* name, const std::string& value) : name_(name) {
        setenv(name, value.c_str(), 1);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() { unsetenv(name_); }

  private:
    const char* name_;
};

/// Decodes a picture at once, by a function.
class InstantDecoder : public PictureDecoder {
  public:
    explicit InstantDecoder(std::function<Pixels()> decode) : decode_(std::move(decode)) {}

    bool prepare() override { return true; }
    std::string media_types() const override { return "image/jpeg,image/gif"; }
    void start(std::span<const std::uint8_t>) override {
        try {
            result_ = decode_();
        } catch (const Failure& failure) {
            result_ = failure;
        }
    }
    std::optional<DecodedPicture> collect_result() override {
        return std::exchange(result_, std::nullopt);
    }
    void attend() override {}
    int descriptor() const override { return -1; }
    std::optional<std::chrono::steady_clock::time_point> deadline() const override { return {}; }

  private:
    std::function<Pixels()> decode_;
    std::optional<DecodedPicture> result_;
};

/// Transfers from a camera server, on whose paths the tests put what they need.
class Transfers : public ::testing::Test {
  protected:
    Transfers() { server.answer("/hello", always(200, "hello")); }

    std::unique_ptr<Transfer> start(const std::string& url, TransferDone done) {
        return transfers->start(request_for(url), std::move(done));
    }

    std::string text_from(const std::string& url, std::chrono::milliseconds timeout = patience) {
        TransferRequest request = request_for(url);
        request.timeout = timeout;
        return text_from(std::move(request));
    }

    std::string text_from(TransferRequest request) {
        std::optional<TransferOutcome> result;
        const auto transfer = transfers->start(
            std::move(request), [&](TransferOutcome outcome) { result = std::move(outcome); });
        loop.run_until([&] { return result.has_value(); });
        return result ? text_of(*result) : "nothing";
    }

    TransferRequest request_for(const std::string& url) {
        return {.url = url, .timeout = patience};
    }

    std::string text_at(const std::string& path) { return text_from(server.url(path)); }

    /// Starts a transfer from a camera that takes the request and sends nothing. The camera tells
    /// then whether it was left before it lost its patience.
    std::unique_ptr<Transfer> start_stall(TransferDone done) {
        server.answer("/stall", [this](const demo::Request&) {
            return demo::RawAnswer([this](const demo::Socket& socket) {
                loop.post([this] { is_stalling = true; });
                const bool is_left = !socket.wait(patience_of_stall);
                loop.post([this, is_left] { was_left = is_left; });
            });
        });
        auto transfer = start(server.url("/stall"), std::move(done));
        loop.run_until([this] { return is_stalling; });
        return transfer;
    }

    void expect_left() {
        loop.run_until([this] { return was_left.has_value(); });
        EXPECT_EQ(std::exchange(was_left, std::nullopt), true);
    }

    std::string host() const { return "127.0.0.1:" + std::to_string(server.port()); }

    /// Takes every body for a picture.
    std::function<Pixels()> decode = [] { return Pixels(); };
    std::thread::id decoding_thread;
    int decodes = 0;
    MessageLoop loop;
    bool is_stalling = false;
    std::optional<bool> was_left;
    demo::CameraServer server;
    std::unique_ptr<CurlTransfers> transfers =
        transfers_with(std::make_unique<InstantDecoder>([this] {
            decoding_thread = std::this_thread::get_id();
            ++decodes;
            return decode();
        }));

    std::unique_ptr<CurlTransfers> transfers_with(std::unique_ptr<PictureDecoder> decoder) {
        return std::make_unique<CurlTransfers>(
            [this](std::function<void()> work) { loop.post(std::move(work)); }, std::move(decoder));
    }
};

} // namespace lookfar
