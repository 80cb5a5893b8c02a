#include "decoder/channel.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <sys/uio.h>
#include <utility>

namespace lookfar::decoder {

namespace {

/// Room for the ancillary data of one descriptor. It has room for a second one, since the system
/// rounds up.
struct Ancillary {
    alignas(cmsghdr) std::array<std::uint8_t, CMSG_SPACE(sizeof(int))> bytes{};
};

msghdr header_of(iovec& content, Ancillary& ancillary) {
    msghdr header{};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    header.msg_control = ancillary.bytes.data();
    header.msg_controllen = ancillary.bytes.size();
    return header;
}

/// Keeps the first of the descriptors that have come and closes the others.
void keep_first_descriptor(msghdr& header, ReceivedMessage& message) {
    for (cmsghdr* part = CMSG_FIRSTHDR(&header); part; part = CMSG_NXTHDR(&header, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS)
            continue;
        const std::size_t size = part->cmsg_len - CMSG_LEN(0);
        for (std::size_t offset = 0; offset + sizeof(int) <= size; offset += sizeof(int)) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(part) + offset, sizeof number);
            Descriptor received(number);
            if (message.descriptor)
                message.is_too_much = true;
            else
                message.descriptor = std::move(received);
        }
    }
}

} // namespace

std::optional<ReceivedMessage> receive(int socket, Waiting waiting) {
    ReceivedMessage message;
    iovec content{.iov_base = message.bytes.data(), .iov_len = message.bytes.size()};
    Ancillary ancillary;
    msghdr header = header_of(content, ancillary);
    const int flags = MSG_CMSG_CLOEXEC | (waiting == Waiting::no ? MSG_DONTWAIT : 0);
    const ssize_t size = uninterrupted([&] { return ::recvmsg(socket, &header, flags); });
    if (size == -1 && (errno == EAGAIN || errno == EWOULDBLOCK))
        return std::nullopt;
    if (size == -1)
        return message;
    message.size = static_cast<std::size_t>(size);
    message.is_too_much = (header.msg_flags & (MSG_TRUNC | MSG_CTRUNC)) != 0;
    keep_first_descriptor(header, message);
    return message;
}

bool send(int socket, std::span<std::uint8_t> bytes, const Descriptor& descriptor) {
    iovec content{.iov_base = bytes.data(), .iov_len = bytes.size()};
    Ancillary ancillary;
    msghdr header = header_of(content, ancillary);
    if (descriptor) {
        const int number = descriptor.number();
        cmsghdr* const part = CMSG_FIRSTHDR(&header);
        part->cmsg_level = SOL_SOCKET;
        part->cmsg_type = SCM_RIGHTS;
        part->cmsg_len = CMSG_LEN(sizeof number);
        std::memcpy(CMSG_DATA(part), &number, sizeof number);
    } else {
        header.msg_control = nullptr;
        header.msg_controllen = 0;
    }
    const ssize_t sent =
        uninterrupted([&] { return ::sendmsg(socket, &header, MSG_NOSIGNAL | MSG_DONTWAIT); });
    return sent == static_cast<ssize_t>(bytes.size());
}

} // namespace lookfar::decoder
