#include "decoder/decoder_process.h"
#include "desktop/desktop_platform.h"
#include "program.h"
#include "resources/resources.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// A warning that nobody reads and a file that grows too large fail where they are written, and
/// don't end the program.
void ignore_signals_of_failed_writes() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

/// A program that was started to ignore the end of its children would kill the decoder by a number
/// that may be another process's by then.
void keep_ended_children() {
    std::signal(SIGCHLD, SIG_DFL);
}

/// Warnings go to descriptor 2, whatever lies there: a file or a connection must never get one of
/// the first three descriptors.
void keep_standard_streams_open() {
    int descriptor = STDIN_FILENO;
    while (descriptor != -1 && descriptor <= STDERR_FILENO)
        descriptor = ::open("/dev/null", O_RDWR);
    if (descriptor != -1)
        ::close(descriptor);
}

} // namespace

int main(int argument_count, char** arguments) {
    ignore_signals_of_failed_writes();
    keep_ended_children();
    keep_standard_streams_open();
    lookfar::DesktopPlatform platform(argument_count, arguments, lookfar::resources::icons(),
                                      lookfar::decoder::decoder_of_this_program());
    lookfar::Program program(platform);
    platform.set_end_handler([&program] { program.close(); });
    program.start();
    platform.run();
}
