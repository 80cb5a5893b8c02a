#pragma once

#include "desktop/driven/x_connection.h"

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <xcb/xcb_ewmh.h>

#include <optional>
#include <string>
#include <vector>

namespace lookfar::driven {

/// A window at the moment at which it was looked at. Places are those of its inside, in pixels of
/// the screen.
struct ScreenWindow {
    xcb_window_t id = XCB_NONE;
    std::string title;
    QRect place;
    bool is_fullscreen = false;
};

/// What stands on the X screen: the windows that the window manager keeps, and the pixels.
class Screen {
  public:
    explicit Screen(const XConnection& x);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen();

    QSize size() const;

    /// The windows of a process, the hindmost first.
    std::vector<ScreenWindow> windows_of(qint64 process) const;
    /// Whether a menu or a drop-down list of the process is open.
    bool has_popup_of(qint64 process) const;
    /// The window that has the keyboard.
    xcb_window_t active_window() const;
    /// Asks a window to close, as the close box of its frame does.
    void ask_to_close(const ScreenWindow& window);

    QImage pixels(const QRect& area) const;
    QColor colour_at(const QPoint& point) const;

  private:
    ScreenWindow look_at(xcb_window_t id) const;
    std::string title_of(xcb_window_t id) const;
    QRect place_of(xcb_window_t id) const;
    bool is_fullscreen(xcb_window_t id) const;
    bool is_popup(xcb_window_t id) const;
    bool belongs_to(xcb_window_t id, qint64 process) const;

    const XConnection& x_;
    /// The names by which window managers and programs speak with each other.
    mutable xcb_ewmh_connection_t names_{};
};

} // namespace lookfar::driven
