#pragma once

#include "x_server.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace lookfar::bench {

/// A window of another process on the X server that DISPLAY names. Throws std::runtime_error once
/// it is not there.
class WatchedWindow {
  public:
    explicit WatchedWindow(xcb_window_t window);

    /// Some pixels of the picture in it, in a place that no text of an error covers.
    std::vector<std::uint8_t> pixels() const;

    /// Asks the window for a sign of life, as window managers do, and returns when it has come.
    void ping();

  private:
    xcb_atom_t atom(std::string_view name) const;
    bool is_answer(const xcb_generic_event_t& event) const;
    void wait_for_event() const;

    XConnection connection_;
    xcb_window_t window_;
    xcb_window_t root_;
    xcb_atom_t protocols_;
    xcb_atom_t ping_;
    std::uint32_t number_ = 0;
};

} // namespace lookfar::bench
