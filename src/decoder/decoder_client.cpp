#include "decoder/decoder_client.h"

#include "decoder/decoder_failures.h"
#include "decoder/messages.h"
#include "decoder/received_pixels.h"
#include "runtime/pictures/picture_formats.h"

#include <new>
#include <utility>

namespace lookfar::decoder {

namespace {

using Clock = std::chrono::steady_clock;

/// Those that every decoder reads.
constexpr std::uint32_t usual_formats = (1U << (picture_formats.size() - 1)) - 1;

} // namespace

DecoderClient::DecoderClient(std::filesystem::path program, Clock::duration longest)
    : program_(std::move(program)), longest_(longest) {}

bool DecoderClient::prepare() {
    if (state_ == State::absent && !formats_ && !start_failure_)
        launch();
    return state_ != State::starting || formats_;
}

std::string DecoderClient::media_types() const {
    const std::uint32_t formats = formats_.value_or(usual_formats);
    std::string types;
    for (std::size_t index = 0; index < picture_formats.size(); ++index)
        if ((formats & 1U << index) != 0)
            types.append(types.empty() ? "" : ",").append("image/").append(picture_formats[index]);
    return types;
}

void DecoderClient::start(std::span<const std::uint8_t> bytes) {
    if (state_ == State::decoding)
        end_process();
    result_ = std::exchange(start_failure_, std::nullopt);
    if (result_)
        return;
    try {
        body_.write(bytes);
        begin();
    } catch (const std::bad_alloc&) {
        result_ = no_memory_for_a_picture();
    }
}

void DecoderClient::begin() {
    has_picture_ = true;
    deadline_ = Clock::now() + longest_;
    // One that has died since the last picture is found out only here.
    if (state_ == State::idle && !send_order())
        end_process();
    if (state_ == State::absent)
        launch();
}

std::optional<DecodedPicture> DecoderClient::collect_result() {
    return std::exchange(result_, std::nullopt);
}

void DecoderClient::attend() {
    try {
        while (process_) {
            const auto message = receive(process_->socket(), Waiting::no);
            if (!message)
                break;
            hear(*message);
        }
        if (deadline_ && Clock::now() >= *deadline_)
            throw takes_too_long();
    } catch (const Failure& failure) {
        fail(failure);
    } catch (const std::bad_alloc&) {
        fail(no_memory_for_a_picture());
    }
}

int DecoderClient::descriptor() const {
    return process_ ? process_->socket() : -1;
}

std::optional<Clock::time_point> DecoderClient::deadline() const {
    return deadline_;
}

void DecoderClient::launch() {
    state_ = State::starting;
    deadline_ = Clock::now() + longest_;
    try {
        process_ = std::make_unique<DecoderProcess>(program_);
    } catch (const Failure& failure) {
        fail(failure);
    } catch (const std::bad_alloc&) {
        fail(no_memory_for_a_picture());
    }
}

bool DecoderClient::send_order() {
    process_->allow_processor_time(std::chrono::ceil<std::chrono::seconds>(longest_));
    const Order order{.byte_count = body_.byte_count(),
                      .file_size = body_.size(),
                      .idle_files = files_->lend_idle()};
    const Descriptor none;
    if (!send(process_->socket(), order, body_.is_known ? none : body_.descriptor()))
        return false;
    body_.is_known = true;
    state_ = State::decoding;
    return true;
}

void DecoderClient::hear(const ReceivedMessage& message) {
    if (state_ == State::starting)
        be_greeted(message);
    else if (state_ == State::decoding)
        accept_reply(message);
    else
        throw has_failed();
}

void DecoderClient::be_greeted(const ReceivedMessage& message) {
    if (message.size == 0)
        throw ends_at_its_start();
    const auto greeting = message.as<Greeting>();
    if (!greeting || greeting->version != protocol_version)
        throw has_failed();
    if (greeting->error != 0)
        throw cannot_be_locked_in(greeting->error);
    formats_ = greeting->formats;
    state_ = State::idle;
    if (!has_picture_)
        deadline_.reset();
    else if (!send_order())
        throw has_failed();
}

void DecoderClient::accept_reply(const ReceivedMessage& message) {
    const auto reply = message.as<Reply>();
    if (!reply)
        throw has_failed();
    result_ = received_picture(*reply, message.descriptor, *files_);
    has_picture_ = false;
    body_.clear();
    deadline_.reset();
    state_ = State::idle;
}

void DecoderClient::fail(const Failure& failure) {
    if (has_picture_)
        result_ = failure;
    else if (state_ == State::starting)
        start_failure_ = failure;
    has_picture_ = false;
    end_process();
}

void DecoderClient::end_process() {
    process_.reset();
    files_->forget();
    body_.is_known = false;
    deadline_.reset();
    state_ = State::absent;
}

} // namespace lookfar::decoder
