#pragma once

#include "runtime/runtime.h"
#include "runtime/window.h"

namespace lookfar {

class AboutWindow;
class CameraEditor;
class CameraListWindow;
class FullscreenWindow;
class MainWindow;
class Platform;
class SplashWindow;

/// One run of the program: the runtime and the six windows on it.
class Program {
  public:
    explicit Program(Platform& platform, IdleTicks idle_ticks = IdleTicks::held_back);
    ~Program();

    /// Opens the splash window, which loads the main window a second later. From then on the
    /// platform's message loop has to run.
    void start();

    /// Ends as closing the main window does, whichever windows are up.
    void close();

    Runtime runtime;
    Window<MainWindow> Form1;
    Window<FullscreenWindow> Form2;
    Window<CameraListWindow> Form3;
    Window<CameraEditor> Form4;
    Window<SplashWindow> Loading;
    Window<AboutWindow> About;
};

} // namespace lookfar
