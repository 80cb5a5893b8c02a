#pragma once

#include "runtime/failure.h"
#include "runtime/pictures/picture.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace lookfar {

/// The pixels of a picture, or why there are none: a failure of the kind `unknown_picture_format`
/// for bytes that don't even begin as a picture, or else of the kind `invalid_picture`.
using DecodedPicture = std::variant<Pixels, Failure>;

/// Decodes pictures beside the thread that asks for them, one after the other. It belongs to one
/// thread, which attends to it, and none of its functions waits.
class PictureDecoder {
  public:
    virtual ~PictureDecoder() = default;

    /// Gets ready, and gives true once that is done or has failed.
    virtual bool prepare() = 0;

    /// The media types of the pictures that are read, with commas between them. They are certain
    /// once it is ready.
    virtual std::string media_types() const = 0;

    /// Begins to decode a picture from its bytes, which it copies. One that was begun before and
    /// has no result yet is given up.
    virtual void start(std::span<const std::uint8_t> bytes) = 0;

    /// What has become of the picture, once; nothing as long as it is being decoded.
    virtual std::optional<DecodedPicture> collect_result() = 0;

    /// Does what is due. It is called when the descriptor can be read or the deadline has come.
    virtual void attend() = 0;
    /// -1 where there is none.
    virtual int descriptor() const = 0;
    virtual std::optional<std::chrono::steady_clock::time_point> deadline() const = 0;
};

} // namespace lookfar
