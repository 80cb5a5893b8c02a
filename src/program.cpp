#include "program.h"

#include "acquisition/main_window.h"
#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"
#include "pipeline/fullscreen_window.h"
#include "splash/about_window.h"
#include "splash/splash_window.h"

#include <memory>

namespace lookfar {

Program::Program(Platform& platform, IdleTicks idle_ticks)
    : runtime(platform, idle_ticks),
      Form1(runtime, [this] { return std::make_unique<MainWindow>(*this); }),
      Form2(runtime, [this] { return std::make_unique<FullscreenWindow>(*this); }),
      Form3(runtime, [this] { return std::make_unique<CameraListWindow>(*this); }),
      Form4(runtime, [this] { return std::make_unique<CameraEditor>(*this); }),
      Loading(runtime, [this] { return std::make_unique<SplashWindow>(*this); }),
      About(runtime, [this] { return std::make_unique<AboutWindow>(*this); }) {}

Program::~Program() = default;

void Program::start() {
    runtime.deliver([this] { Loading->Show(); });
}

void Program::close() {
    runtime.deliver([this] {
        if (Form1.is_loaded())
            Form1->request_close();
        else
            runtime.End();
    });
}

} // namespace lookfar
