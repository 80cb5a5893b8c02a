#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <xcb/xcb.h>

#include <string>
#include <vector>

/// What stands on the X screen: the windows that the window manager keeps, and the pixels.
namespace lookfar::driven::screen {

/// A window at the moment at which it was looked at. Places are those of its inside, in pixels of
/// the screen.
struct Window {
    xcb_window_t id = XCB_NONE;
    std::string title;
    QRect place;
    bool is_active = false;
    bool is_fullscreen = false;
};

/// The windows of a process, the hindmost first.
std::vector<Window> windows_of(qint64 process);
/// Whether a menu or a drop-down list of the process is open.
bool has_popup_of(qint64 process);
/// Asks a window to close, as the close box of its frame does.
void ask_to_close(const Window& window);

QRect whole();
QColor colour_at(const QPoint& point);

} // namespace lookfar::driven::screen
