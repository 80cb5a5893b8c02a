#pragma once

#include "runtime/descriptor.h"

#include <chrono>
#include <filesystem>
#include <sys/types.h>

namespace lookfar::decoder {

/// The decoder that belongs to the running program: a file beside the program's own, or where it is
/// installed. Neither the environment nor the current directory has a say in it.
std::filesystem::path decoder_of_this_program();

/// A running decoder and the socket to it. It lives no longer than this does, and no longer than
/// the thread that has made this.
class DecoderProcess {
  public:
    /// Starts the program in that file with no environment, no arguments, the root folder as its
    /// own, a session of its own, and no descriptor but its socket and /dev/null. Throws a
    /// `Failure` where the system can't.
    explicit DecoderProcess(const std::filesystem::path& program);
    DecoderProcess(const DecoderProcess&) = delete;
    DecoderProcess& operator=(const DecoderProcess&) = delete;
    ~DecoderProcess();

    int socket() const { return socket_.number(); }

    /// Has the system end it when it has used so much processor time from now on. That holds even
    /// while nobody watches its time on the clock.
    void allow_processor_time(std::chrono::seconds time) const;

  private:
    Descriptor socket_;
    pid_t process_;
};

} // namespace lookfar::decoder
