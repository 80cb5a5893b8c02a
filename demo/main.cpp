#include "demo/camera_server.h"
#include "demo/cameras.h"

#include <QGuiApplication>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace {

using namespace lookfar::demo;

constexpr std::string_view usage = "usage: lookfar-cameras [--port N] [--list FILE]\n"
                                   "Serves demonstration cameras on 127.0.0.1.\n"
                                   "  --port N     listen on port N (8094); 0 takes a free one\n"
                                   "  --list FILE  write the list of the cameras to FILE\n";

struct Options {
    std::uint16_t port = 8094;
    std::optional<std::string> list_file;
};

std::optional<std::uint16_t> parse_port(std::string_view text) {
    std::uint16_t port = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    if (error != std::errc() || stop != text.data() + text.size()) {
        return std::nullopt;
    }
    return port;
}

bool set_option(Options& options, std::string_view name, const char* value) {
    if (name == "--list") {
        options.list_file = value;
        return true;
    }
    const std::optional<std::uint16_t> port = parse_port(value);
    if (name != "--port" || !port) {
        return false;
    }
    options.port = *port;
    return true;
}

std::optional<Options> parse_options(std::span<char* const> arguments) {
    Options options;
    for (std::size_t position = 0; position < arguments.size(); position += 2) {
        if (position + 1 == arguments.size() ||
            !set_option(options, arguments[position], arguments[position + 1])) {
            return std::nullopt;
        }
    }
    return options;
}

void write_list(const CameraServer& server, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << camera_list(server);
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write the list to " + path);
    }
}

sigset_t stop_signals() {
    sigset_t awaited;
    sigemptyset(&awaited);
    sigaddset(&awaited, SIGINT);
    sigaddset(&awaited, SIGTERM);
    return awaited;
}

void wait_for(const sigset_t& awaited) {
    int received = 0;
    sigwait(&awaited, &received);
}

void serve(const Options& options, const sigset_t& awaited) {
    CameraServer server(options.port);
    install_cameras(server);
    if (options.list_file) {
        write_list(server, *options.list_file);
    }
    std::cout << "lookfar-cameras: " << cameras().size() << " cameras at " << server.url("/")
              << '\n'
              << std::flush;
    wait_for(awaited);
}

} // namespace

int main(int argument_count, char** arguments) {
    const std::span all(arguments, static_cast<std::size_t>(argument_count));
    const std::optional<Options> options = parse_options(all.subspan(1));
    if (!options) {
        std::cerr << usage;
        return 2;
    }
    // Blocked before the first thread starts, so that every thread leaves them to wait_for.
    const sigset_t awaited = stop_signals();
    pthread_sigmask(SIG_BLOCK, &awaited, nullptr);
    // Fonts need an application; the offscreen platform needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argument_count, arguments);
    try {
        serve(*options, awaited);
    } catch (const std::exception& error) {
        std::cerr << "lookfar-cameras: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
