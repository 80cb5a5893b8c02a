#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace lookfar::driven {

struct Freed {
    // The X library gives its replies away as memory to free.
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
    void operator()(void* memory) const { std::free(memory); }
};

/// What a request to the X server brings back; empty after an error.
template <class Type>
using Reply = std::unique_ptr<Type, Freed>;

/// The tests' own connection to the X server that DISPLAY names.
class XConnection {
  public:
    /// Throws std::runtime_error where no X server answers.
    XConnection();

    xcb_connection_t* get() const { return connection_.get(); }
    const xcb_screen_t& screen() const { return *screen_; }
    xcb_window_t root() const { return screen_->root; }

    /// Returns when the server has carried out all that was asked of it.
    void finish() const;

  private:
    struct Disconnected {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnected> connection_;
    const xcb_screen_t* screen_;
};

} // namespace lookfar::driven
