#include "demo/camera_server.h"
#include "demo/cameras.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <csignal>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

using namespace lookfar::demo;

struct Options {
    std::uint16_t port = 0;
    std::string list_file;
};

/// Ends the program, with the help, where the command line cannot be understood.
Options parse_options(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Serves demonstration cameras on 127.0.0.1.");
    parser.addHelpOption();
    parser.addOptions({{"port", "Listen on port N; 0 takes a free one.", "N", "8094"},
                       {"list", "Write the list of the cameras to FILE.", "FILE"}});
    parser.process(application);
    bool is_port = false;
    const std::uint16_t port = parser.value("port").toUShort(&is_port);
    if (!is_port || !parser.positionalArguments().isEmpty())
        parser.showHelp(2);
    return {port, parser.value("list").toStdString()};
}

void write_list(const CameraServer& server, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << camera_list(server);
    file.close();
    if (!file)
        throw std::runtime_error("cannot write the list to " + path);
}

/// Blocks the signals, in threads that start later too, so that they can be waited for.
sigset_t block_stop_signals() {
    sigset_t stopping;
    sigemptyset(&stopping);
    sigaddset(&stopping, SIGINT);
    sigaddset(&stopping, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stopping, nullptr);
    return stopping;
}

void serve(const Options& options, const sigset_t& stop_signals) {
    CameraServer server(options.port);
    install_cameras(server);
    if (!options.list_file.empty())
        write_list(server, options.list_file);
    std::cout << "lookfar-cameras: " << cameras().size() << " cameras on port " << server.port()
              << '\n'
              << std::flush;
    int received = 0;
    sigwait(&stop_signals, &received);
}

} // namespace

int main(int argument_count, char** arguments) {
    const sigset_t stop_signals = block_stop_signals();
    // Fonts need an application; the offscreen platform needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argument_count, arguments);
    try {
        serve(parse_options(application), stop_signals);
    } catch (const std::exception& error) {
        std::cerr << "lookfar-cameras: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
