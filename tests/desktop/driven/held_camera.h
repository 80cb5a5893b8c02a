#pragma once

#include "demo/camera_server.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <utility>

namespace lookfar::driven {

/// A camera that keeps everybody waiting until it is let go.
class HeldCamera {
  public:
    explicit HeldCamera(demo::Answer answer) : answer_(std::move(answer)) {}

    demo::Responder responder() const {
        return [answer = answer_, is_let_go = is_let_go_](const demo::Request&) -> demo::Reply {
            return [answer, is_let_go](const demo::Socket& socket) {
                while (!*is_let_go && socket.wait(std::chrono::milliseconds(10))) {
                }
                socket.write(demo::head_of(answer, false) + answer.body);
            };
        };
    }

    void let_go() { *is_let_go_ = true; }

  private:
    demo::Answer answer_;
    std::shared_ptr<std::atomic<bool>> is_let_go_ = std::make_shared<std::atomic<bool>>(false);
};

} // namespace lookfar::driven
