#include "camera_process.h"

#include "demo/camera_server.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace lookfar::bench {

namespace {

[[noreturn]] void serve(const std::vector<Bytes>& pictures, int pipe_end) {
    demo::CameraServer server;
    std::atomic<std::size_t> turn = 0;
    server.answer("/picture.jpg", [&](const demo::Request&) {
        const Bytes& picture = pictures[turn++ % pictures.size()];
        return demo::Answer{.status = 200,
                            .content_type = "image/jpeg",
                            .body = std::string(picture.begin(), picture.end()),
                            .headers = {},
                            .delay = {}};
    });
    const std::string url = server.url("/picture.jpg");
    if (::write(pipe_end, url.data(), url.size()) == -1)
        std::_Exit(1);
    ::close(pipe_end);
    while (true)
        ::pause();
}

std::string read_all(int pipe_end) {
    std::string text;
    std::array<char, 256> part{};
    for (ssize_t count = 1; count > 0;) {
        count = ::read(pipe_end, part.data(), part.size());
        if (count > 0)
            text.append(part.data(), static_cast<std::size_t>(count));
    }
    return text;
}

} // namespace

CameraProcess::CameraProcess(const std::vector<Bytes>& pictures) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) == -1)
        throw std::system_error(errno, std::generic_category(), "pipe");
    process_ = ::fork();
    if (process_ == -1)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (process_ == 0) {
        ::close(ends[0]);
        serve(pictures, ends[1]);
    }
    ::close(ends[1]);
    url_ = read_all(ends[0]);
    ::close(ends[0]);
}

CameraProcess::~CameraProcess() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
}

} // namespace lookfar::bench
