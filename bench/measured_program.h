#pragma once

#include "program.h"
#include "support/temporary_folder.h"

#include <string>

namespace lookfar {
class DesktopPlatform;
}

namespace lookfar::bench {

enum class ShownWindow { main, fullscreen };

/// A program on one camera, in a folder of its own, loaded without a window on the screen. It
/// refreshes only when it is told to.
class MeasuredProgram {
  public:
    MeasuredProgram(DesktopPlatform& platform, const std::string& url,
                    IdleTicks idle_ticks = IdleTicks::held_back);

    Program& program() { return program_; }

    /// Shows the main window, or in its place the fullscreen window at 1920x1080 pixels, and lets
    /// it settle. Once only.
    void show(ShownWindow window);

    /// One refresh from the press of its button until the shown window has painted the new
    /// picture, blurred where the blur is on. Says false if that takes too long.
    bool refresh_and_paint();

    /// Whether the last fetch has failed.
    bool has_failed();

  private:
    DesktopPlatform& platform_;
    testing::TemporaryFolder folder_;
    Program program_;
    ShownWindow shown_ = ShownWindow::main;
};

} // namespace lookfar::bench
