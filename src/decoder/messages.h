#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace lookfar::decoder {

// What the program and its decoder say to each other, over a pair of connected sockets that keep
// messages whole. The decoder greets once; then each order has one reply. Both come from one build
// and one machine, so that a message is the bytes of its structure.

/// Changes with the messages, since a running program may find the decoder of another release.
inline constexpr std::uint32_t protocol_version = 1;

/// The descriptor of the decoder's socket.
inline constexpr int decoder_socket = 3;

/// Files of pixels are used again unless they are larger than that; they are numbered from 0. A
/// page that goes back to the system and is asked for anew costs more than the decoding of what
/// stands on it.
inline constexpr std::size_t largest_kept_pixels = std::size_t{32} * 1024 * 1024;
inline constexpr std::uint32_t max_kept_files = 8;

/// From the decoder, once it is locked in, or can't be.
struct Greeting {
    std::uint32_t version = protocol_version;
    /// The system's number of what kept it from being locked in; 0 where nothing did.
    std::int32_t error = 0;
    /// A bit for each of `picture_formats` that is read, the lowest for the first one.
    std::uint32_t formats = 0;
};

/// A file with a picture's bytes is kept by both sides unless it is larger.
inline constexpr std::size_t largest_kept_body = std::size_t{8} * 1024 * 1024;

/// To the decoder. A picture's bytes lie at the beginning of a memory file, whose descriptor comes
/// with the message unless it is the kept one that came before.
struct Order {
    std::uint64_t byte_count = 0;
    std::uint64_t file_size = 0;
    /// A bit for each kept file whose pixels nobody needs any more, and which the decoder may use
    /// until it replies. All others that the program has are in use there.
    std::uint32_t idle_files = 0;
    std::uint32_t unused = 0;
};

enum class Verdict : std::uint32_t { decoded, unknown_format, not_decodable };

/// From the decoder. Pixels lie at the beginning of a memory file as those of `Pixels` do, their
/// opacity right behind them. The file's descriptor comes with the message unless it is a kept one
/// that came before.
struct Reply {
    Verdict verdict = Verdict::not_decodable;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint32_t has_opacity = 0;
    /// The number of the kept file, or `max_kept_files` for a file that is not used again.
    std::uint32_t file = max_kept_files;
    /// A bit for each file that is kept no longer.
    std::uint32_t dropped_files = 0;
    /// Why there are no pixels, for the user; ends with its first zero.
    std::array<char, 232> text{};
};

} // namespace lookfar::decoder
