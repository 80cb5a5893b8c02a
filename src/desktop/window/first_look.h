#pragma once

#include <cstdint>

class QWidget;

namespace lookfar::desktop {

/// What the X server itself shows of a window from the moment when that comes up until the program
/// paints it. Without it there is what was on the screen before, or nothing.
class FirstLook {
  public:
    FirstLook() = default;
    FirstLook(const FirstLook&) = delete;
    FirstLook& operator=(const FirstLook&) = delete;
    ~FirstLook() { withdraw(); }

    /// Gives the server the window as it looks now. To be called before the window is shown; does
    /// nothing where there is no X server, or one of few colours.
    void give(QWidget& window);
    /// To be called once the window is painted.
    void withdraw();

  private:
    /// The server's number of the window; zero while it has no look of it.
    std::uint32_t window_ = 0;
};

} // namespace lookfar::desktop
