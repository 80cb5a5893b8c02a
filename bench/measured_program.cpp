#include "measured_program.h"

#include "message_loop.h"

#include "acquisition/main_window.h"
#include "desktop/desktop_platform.h"
#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"
#include "pipeline/fullscreen_window.h"
#include "splash/splash_window.h"

#include <chrono>

namespace lookfar::bench {

namespace {

bool has_painted(DesktopPlatform& platform, const Image& image) {
    desktop::WindowView* const view = platform.windows().view_of(image.form);
    return view && view->drawn().pictures().is_up_to_date(image, image.Picture);
}

} // namespace

MeasuredProgram::MeasuredProgram(DesktopPlatform& platform, const std::string& url,
                                 IdleTicks idle_ticks)
    : platform_(platform), program_(platform, idle_ticks) {
    testing::write_file("Cams.inf", "camera\r\n" + url + "\r\n");
    program_.Form1->Timer1.Enabled = false;
    program_.Loading->Timer1.Enabled = false;
    program_.Loading->Timer2.Enabled = false;
}

void MeasuredProgram::show(ShownWindow window) {
    shown_ = window;
    if (window == ShownWindow::main) {
        program_.Form1->Show();
    } else {
        program_.Form2->Width = 1920 * twips_per_pixel;
        program_.Form2->Height = 1080 * twips_per_pixel;
        program_.Form2->Show();
    }
    run_loop_for(platform_, std::chrono::milliseconds(300));
}

bool MeasuredProgram::refresh_and_paint() {
    const Image& shown =
        shown_ == ShownWindow::main ? program_.Form1->ImagNT1 : program_.Form2->Image3;
    const PictureReference before = shown.Picture;
    program_.Form1->Command2.Click.raise();
    const bool blurs = program_.Form1->Check2.Value == 1;
    const auto is_done = [&] {
        const bool is_blurred = !blurs || program_.Form2->Label8.Caption == "1";
        return is_blurred && shown.Picture.get() != before && has_painted(platform_, shown);
    };
    const Instant latest = platform_.now() + std::chrono::seconds(5);
    platform_.wait_until([&] { return is_done() || platform_.now() > latest; });
    return is_done();
}

bool MeasuredProgram::has_failed() {
    return program_.Form2->Timer2.Enabled;
}

} // namespace lookfar::bench
