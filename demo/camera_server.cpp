#include "demo/camera_server.h"

#include <chrono>
#include <exception>
#include <utility>

namespace lookfar::demo {
namespace {

Answer method_not_allowed() {
    Answer answer = status_page(405);
    answer.headers.push_back({"Allow", "GET"});
    return answer;
}

} // namespace

CameraServer::CameraServer(std::uint16_t port)
    : listener_(listen_on_loopback(port)),
      port_(local_port(listener_)),
      acceptor_([this](const std::stop_token& stop) { accept_clients(stop); }) {}

CameraServer::~CameraServer() {
    acceptor_.request_stop();
    listener_.shut_down();
    acceptor_.join();
    for (const Client& client : clients_) {
        client.socket.shut_down();
    }
    clients_.clear();
}

std::string CameraServer::url(std::string_view path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + std::string(path);
}

void CameraServer::answer(std::string path, Responder responder) {
    const std::lock_guard lock(mutex_);
    responders_.insert_or_assign(std::move(path), std::move(responder));
}

std::size_t CameraServer::requests() const {
    const std::lock_guard lock(mutex_);
    std::size_t total = 0;
    for (const auto& [path, count] : request_counts_) {
        total += count;
    }
    return total;
}

std::size_t CameraServer::requests(std::string_view path) const {
    const std::lock_guard lock(mutex_);
    const auto found = request_counts_.find(path);
    return found == request_counts_.end() ? 0 : found->second;
}

void CameraServer::accept_clients(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        Socket socket = accept_connection(listener_);
        clients_.remove_if([](const Client& client) { return client.finished.load(); });
        if (socket.is_open()) {
            start_client(std::move(socket));
        } else if (!stop.stop_requested()) {
            // Out of descriptors, most likely: clients that leave give theirs back.
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
}

void CameraServer::start_client(Socket socket) {
    ++connections_;
    Client& client = clients_.emplace_back();
    client.socket = std::move(socket);
    client.thread = std::jthread([this, &client] { serve(client); });
}

void CameraServer::serve(Client& client) {
    try {
        serve_connection(client.socket,
                         [this](const Request& request) { return reply_to(request); });
    } catch (const std::exception&) {
        // An answer that failed while it was written cannot be taken back, only broken off.
        client.socket.shut_down();
    }
    client.finished = true;
}

Reply CameraServer::reply_to(const Request& request) {
    const Responder responder = count_and_find(request);
    if (request.method != "GET") {
        return method_not_allowed();
    }
    if (!responder) {
        return status_page(404);
    }
    try {
        return responder(request);
    } catch (const std::exception&) {
        return status_page(500);
    }
}

Responder CameraServer::count_and_find(const Request& request) {
    const std::lock_guard lock(mutex_);
    ++request_counts_[request.path];
    const auto found = responders_.find(request.path);
    return found == responders_.end() ? Responder() : found->second;
}

} // namespace lookfar::demo
