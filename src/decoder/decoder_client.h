#pragma once

#include "decoder/body_file.h"
#include "decoder/channel.h"
#include "decoder/decoder_process.h"
#include "decoder/kept_files.h"
#include "runtime/pictures/picture_decoder.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace lookfar::decoder {

/// Has pictures decoded by a process that is locked in.
///
/// That process is started when it is needed first, and anew after it has failed: when the next
/// picture comes, and once for each picture at most. Where it can't be started or can't lock itself
/// in, each picture fails with the reason. A picture that takes too long ends it, and so does one
/// that is given up.
class DecoderClient : public PictureDecoder {
  public:
    /// How long the decoder may work on a picture, its own start included.
    static constexpr std::chrono::seconds max_time{15};

    explicit DecoderClient(std::filesystem::path program,
                           std::chrono::steady_clock::duration longest = max_time);

    bool prepare() override;
    std::string media_types() const override;
    void start(std::span<const std::uint8_t> bytes) override;
    std::optional<DecodedPicture> collect_result() override;
    void attend() override;
    int descriptor() const override;
    std::optional<std::chrono::steady_clock::time_point> deadline() const override;

  private:
    /// What the process does, as far as it has told.
    enum class State { absent, starting, idle, decoding };

    void begin();
    void launch();
    bool send_order();
    void hear(const ReceivedMessage& message);
    void be_greeted(const ReceivedMessage& message);
    void accept_reply(const ReceivedMessage& message);
    void fail(const Failure& failure);
    void end_process();

    const std::filesystem::path program_;
    const std::chrono::steady_clock::duration longest_;
    State state_ = State::absent;
    std::unique_ptr<DecoderProcess> process_;
    std::optional<std::chrono::steady_clock::time_point> deadline_;
    /// As the decoder has told last.
    std::optional<std::uint32_t> formats_;
    /// There is a picture in it to be decoded, until the result is there.
    bool has_picture_ = false;
    BodyFile body_;
    /// Of a start before there was a picture; the first one fails with it.
    std::optional<Failure> start_failure_;
    std::optional<DecodedPicture> result_;
    std::shared_ptr<KeptFiles> files_ = std::make_shared<KeptFiles>();
};

} // namespace lookfar::decoder
