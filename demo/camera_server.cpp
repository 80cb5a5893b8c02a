#include "demo/camera_server.h"

#include <exception>
#include <sys/socket.h>
#include <utility>

namespace lookfar::demo {

CameraServer::CameraServer(std::uint16_t port)
    : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)),
      port_(listen_on_loopback(listener_, port)),
      acceptor_([this](const std::stop_token& stop) { accept_clients(stop); }) {}

CameraServer::~CameraServer() {
    acceptor_.request_stop();
    listener_.shut_down();
    acceptor_.join();
    for (const Client& client : clients_)
        client.socket.shut_down();
}

std::string CameraServer::url(std::string_view path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + std::string(path);
}

void CameraServer::answer(const std::string& path, Responder responder) {
    const std::lock_guard lock(mutex_);
    responders_[path] = std::move(responder);
}

std::size_t CameraServer::requests() const {
    const std::lock_guard lock(mutex_);
    std::size_t total = 0;
    for (const auto& [path, count] : request_counts_)
        total += count;
    return total;
}

std::size_t CameraServer::requests(const std::string& path) const {
    const std::lock_guard lock(mutex_);
    const auto found = request_counts_.find(path);
    return found == request_counts_.end() ? 0 : found->second;
}

Request CameraServer::last_request() const {
    const std::lock_guard lock(mutex_);
    return last_request_;
}

void CameraServer::accept_clients(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        const int descriptor = accept4(listener_.descriptor(), nullptr, nullptr, SOCK_CLOEXEC);
        clients_.remove_if([](const Client& client) { return client.is_finished.load(); });
        if (descriptor < 0)
            continue;
        ++connections_;
        Client& client = clients_.emplace_back(descriptor);
        client.thread = std::jthread([this, &client] { serve(client); });
    }
}

void CameraServer::serve(Client& client) {
    try {
        serve_connection(client.socket, [this](const Request& request) -> Reply {
            const Responder responder = note_and_find(request);
            return responder ? responder(request) : status_page(404);
        });
    } catch (const std::exception&) {
        client.socket.shut_down();
    }
    client.is_finished = true;
}

Responder CameraServer::note_and_find(const Request& request) {
    const std::lock_guard lock(mutex_);
    ++request_counts_[request.path];
    last_request_ = request;
    const auto found = responders_.find(request.path);
    return found == responders_.end() ? Responder() : found->second;
}

} // namespace lookfar::demo
