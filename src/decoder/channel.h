#pragma once

#include "runtime/descriptor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <type_traits>

namespace lookfar::decoder {

/// A message as it came, of whatever length and with whatever descriptors.
struct ReceivedMessage {
    /// Longer than any message that there is.
    std::array<std::uint8_t, 512> bytes{};
    std::size_t size = 0;
    Descriptor descriptor;
    /// It was longer than that, or came with more than one descriptor. The others are closed.
    bool is_too_much = false;

    /// Nothing where this is no such message.
    template <class Message>
    std::optional<Message> as() const {
        static_assert(std::is_trivially_copyable_v<Message> && sizeof(Message) < sizeof bytes);
        if (size != sizeof(Message) || is_too_much)
            return std::nullopt;
        Message message;
        std::memcpy(&message, bytes.data(), sizeof message);
        return message;
    }
};

enum class Waiting { for_a_message, no };

/// The next message on a socket. Without waiting, nothing where none is there. One of no bytes
/// means that the other side is gone.
std::optional<ReceivedMessage> receive(int socket, Waiting waiting);

/// Sends bytes, which it doesn't change, as one message, with a descriptor where one is given. It
/// never waits. Gives false where the other side is gone or accepts no more.
bool send(int socket, std::span<std::uint8_t> bytes, const Descriptor& descriptor);

template <class Message>
bool send(int socket, Message message, const Descriptor& descriptor = {}) {
    static_assert(std::has_unique_object_representations_v<Message>,
                  "no padding may carry what the memory held before");
    return send(socket, {reinterpret_cast<std::uint8_t*>(&message), sizeof message}, descriptor);
}

} // namespace lookfar::decoder
