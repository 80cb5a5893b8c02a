#pragma once

#include "runtime/runtime.h"
#include "runtime/window.h"

namespace lookfar {

class CameraEditor;
class CameraListWindow;
class FullscreenWindow;
class MainWindow;
class Platform;

/// One run of the program: the runtime and the windows on it.
class Program {
  public:
    explicit Program(Platform& platform);
    ~Program();

    /// Loads the main window, the whole start-up and the first refresh inside it, and shows it
    /// at the top left corner of the screen. The message loop is the platform's to run then.
    void start();

    Runtime runtime;
    Window<MainWindow> Form1;
    Window<FullscreenWindow> Form2;
    Window<CameraListWindow> Form3;
    Window<CameraEditor> Form4;
};

} // namespace lookfar
