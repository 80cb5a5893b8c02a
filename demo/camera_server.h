#pragma once

#include "demo/connection.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace lookfar::demo {

/// A small HTTP/1.1 server on 127.0.0.1 that answers GET requests for fixed paths.
///
/// It serves from construction to destruction, with one thread a connection; connections are kept
/// open as the protocol has it. Destruction closes every connection at once, even in the middle
/// of an answer. An unknown path gets status 404; a responder that throws ends its connection. All
/// functions may be called from any thread.
class CameraServer {
  public:
    /// Port 0 takes a free one. Throws std::system_error when the port is not to be had.
    explicit CameraServer(std::uint16_t port = 0);
    ~CameraServer();
    CameraServer(const CameraServer&) = delete;
    CameraServer& operator=(const CameraServer&) = delete;

    std::uint16_t port() const { return port_; }

    /// The URL of a path, which starts with a slash.
    std::string url(std::string_view path) const;

    /// Answers requests for the path, whatever their query, from now on; replaces an earlier
    /// responder.
    void answer(const std::string& path, Responder responder);

    /// The number of well-formed requests so far, those for unknown paths included.
    std::size_t requests() const;
    std::size_t requests(const std::string& path) const;
    /// The last well-formed request; an empty one before the first.
    Request last_request() const;

    /// The number of connections accepted so far.
    std::size_t connections() const { return connections_; }

  private:
    struct Client {
        explicit Client(int descriptor) : socket(descriptor) {}

        Socket socket;
        std::atomic<bool> is_finished = false;
        std::jthread thread;
    };

    void accept_clients(const std::stop_token& stop);
    void serve(Client& client);
    Responder note_and_find(const Request& request);

    Socket listener_;
    std::uint16_t port_;
    std::atomic<std::size_t> connections_ = 0;

    mutable std::mutex mutex_; ///< Guards the next three.
    std::map<std::string, Responder> responders_;
    std::map<std::string, std::size_t> request_counts_;
    Request last_request_;

    std::list<Client> clients_; ///< Only the acceptor touches it, and the destructor after that.
    std::jthread acceptor_;
};

} // namespace lookfar::demo
