// A decoder that lies, or does worse. It is started by a link, and how it lies is the name of what
// that link leads to. Started by its own name, it tells all lies that begin with a good greeting.
#include "decoder/channel.h"
#include "decoder/memory_file.h"
#include "decoder/messages.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <tuple>
#include <unistd.h>

namespace {

using namespace lookfar;
using namespace lookfar::decoder;

constexpr int side = 64;
constexpr std::size_t byte_count = std::size_t{3} * side * side;

Reply reply_of(int width, int height) {
    return {.verdict = Verdict::decoded, .width = width, .height = height, .file = 0};
}

void answer(const Reply& reply, const Descriptor& file = make_memory_file(byte_count)) {
    send(decoder_socket, reply, file);
}

/// With the descriptor twice, and nothing else.
void answer_twice(const Descriptor& file) {
    Reply reply = reply_of(side, side);
    iovec content{.iov_base = &reply, .iov_len = sizeof reply};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(2 * sizeof(int))> ancillary{};
    msghdr header{};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    header.msg_control = ancillary.data();
    header.msg_controllen = ancillary.size();
    cmsghdr* const part = CMSG_FIRSTHDR(&header);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(2 * sizeof(int));
    const std::array numbers{file.number(), file.number()};
    std::memcpy(CMSG_DATA(part), numbers.data(), sizeof numbers);
    ::sendmsg(decoder_socket, &header, MSG_NOSIGNAL);
}

Descriptor unsealed_file() {
    Descriptor file(::memfd_create("lie", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    std::ignore = ::ftruncate(file.number(), byte_count);
    return file;
}

const std::map<std::string, std::function<void()>> lies{
    {"silent", [] { ::pause(); }},
    {"dead half-way", [] { std::_Exit(0); }},
    {"no width", [] { answer(reply_of(0, side)); }},
    {"less than no height", [] { answer(reply_of(side, -side)); }},
    {"too large", [] { answer(reply_of(8000, 5001)); }},
    {"too large to count", [] { answer(reply_of(1 << 30, 1 << 30)); }},
    {"larger than its file", [] { answer(reply_of(side, side + 1)); }},
    {"opacity outside its file",
     [] {
         Reply reply = reply_of(side, side);
         reply.has_opacity = 1;
         answer(reply);
     }},
    {"a file that shrinks later",
     [] {
         const Descriptor file = unsealed_file();
         answer(reply_of(side, side), file);
         std::ignore = ::ftruncate(file.number(), 0);
     }},
    {"a file on the disk",
     [] { answer(reply_of(side, side), Descriptor(::open("/proc/self/exe", O_RDONLY))); }},
    {"a socket", [] { answer(reply_of(side, side), Descriptor(::dup(decoder_socket))); }},
    {"no file", [] { answer(reply_of(side, side), {}); }},
    {"two files", [] { answer_twice(make_memory_file(byte_count)); }},
    {"no such verdict",
     [] {
         Reply reply = reply_of(side, side);
         reply.verdict = static_cast<Verdict>(9);
         answer(reply);
     }},
    {"a refusal without words", [] { answer({.verdict = Verdict::not_decodable}, {}); }},
    {"too short", [] { send(decoder_socket, Greeting()); }},
    {"too long",
     [] {
         std::array<std::uint8_t, 2000> bytes{};
         send(decoder_socket, bytes, {});
     }},
    {"an endless reply",
     [] {
         while (send(decoder_socket, Greeting()))
             continue;
     }},
};

} // namespace

int main(int, char** arguments) {
    const std::filesystem::path link(arguments[0]);
    if (!std::filesystem::is_symlink(link)) {
        for (const auto& [lie, deed] : lies)
            std::cout << lie << '\n';
        return 0;
    }
    const std::string lie = std::filesystem::read_symlink(link).filename();
    std::ofstream(link.parent_path() / "starts", std::ios::app) << '.';
    if (lie == "dead at once")
        return 0;
    if (lie == "never ready")
        ::pause();
    send(decoder_socket, Greeting{.version = lie == "another release" ? 99U : protocol_version,
                                  .error = lie == "not locked in" ? EPERM : 0});
    // A greeting that is refused has no order.
    if (!receive(decoder_socket, Waiting::for_a_message)->as<Order>())
        return 0;
    lies.at(lie)();
    ::pause();
}
