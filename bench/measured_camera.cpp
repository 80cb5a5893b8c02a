#include "demo/camera_server.h"
#include "support/pictures.h"

#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <unistd.h>

using namespace lookfar;

namespace {

std::string make_picture(int width, int height, unsigned number) {
    const Bytes bytes = testing::detailed_jpeg(width, height, number);
    std::string picture(bytes.begin(), bytes.end());
    std::ofstream("picture" + std::to_string(number) + ".jpg", std::ios::binary) << picture;
    return picture;
}

[[noreturn]] void serve(const std::array<std::string, 2>& pictures) {
    std::ofstream requests("requests");
    std::atomic<std::size_t> turn = 0;
    demo::CameraServer server;
    server.answer("/picture.jpg", [&](const demo::Request&) {
        requests << '.' << std::flush;
        return demo::Answer{.status = 200,
                            .content_type = "image/jpeg",
                            .body = pictures.at(turn++ % pictures.size()),
                            .headers = {},
                            .delay = {}};
    });
    std::ofstream("Cams.inf") << "camera\r\n" << server.url("/picture.jpg") << "\r\n";
    while (true)
        ::pause();
}

} // namespace

/// lookfar_measured_camera WIDTH HEIGHT serves two pictures in turn, so that no answer is like the
/// one before. It leaves them in the current folder as picture1.jpg and picture2.jpg, adds a byte
/// to the file requests there at each request, and writes its list once it serves.
int main(int count, char** arguments) {
    if (count != 3)
        return EXIT_FAILURE;
    try {
        const int width = std::stoi(arguments[1]);
        const int height = std::stoi(arguments[2]);
        serve({make_picture(width, height, 1), make_picture(width, height, 2)});
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
