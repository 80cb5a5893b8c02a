#pragma once

#include "acquisition/main_window.h"
#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"
#include "pipeline/fullscreen_window.h"
#include "program.h"
#include "support/pictures.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace lookfar::testing {

using std::chrono::milliseconds;
using std::chrono::seconds;

/// A whole program on a scripted machine, in an empty folder, with cameras named a, b, c, ... that
/// answer with a picture each.
struct Machine {
    /// Lists the first so many cameras in the list file; none leaves the folder empty.
    explicit Machine(int cameras = 1, IdleTicks idle_ticks = IdleTicks::held_back);

    /// Lets the splash window hand over to the main window, first refresh included.
    void start();
    /// Picks a camera and has it fetched.
    void pick(short index);
    void set_answer(char camera, Answer answer, milliseconds after = milliseconds(100));
    /// The user's refresh.
    void refresh() { Form1->Command2.Click.raise(); }
    /// The same, with every camera answering so from now on.
    void refresh_with(const Answer& answer, milliseconds after = milliseconds(100));

    static std::string url_of(char camera);

    TemporaryFolder folder;
    ScriptedPlatform platform;
    Program program;
    Window<MainWindow>& Form1 = program.Form1;
    Window<FullscreenWindow>& Form2 = program.Form2;
    Window<CameraListWindow>& Form3 = program.Form3;
    Window<CameraEditor>& Form4 = program.Form4;
};

} // namespace lookfar::testing
