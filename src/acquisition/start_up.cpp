#include "acquisition/main_window.h"

#include "catalogue/list_file.h"
#include "catalogue/windows/camera_list_window.h"
#include "pipeline/fullscreen_window.h"
#include "runtime/numbers.h"
#include "splash/splash_window.h"

#include <cmath>

namespace lookfar {

void MainWindow::Form_Load() {
    warn_of_colour_depth();
    runtime.random().Randomize(runtime.SecondsSinceMidnight());
    Form2->fill_screen();
    try {
        fill_selector_lists();
        draw_first_camera();
        Text1.Text = number_text(static_cast<double>(Timer1.Interval) / 1000);
        Timer1_Timer();
    } catch (const Failure& failure) {
        show_error(failure);
    }
    Loading->Hide();
}

/// Where there is no camera at all, the error display says it.
void MainWindow::tell_of_incomplete_list() {
    attempt([this] {
        const auto complaint = catalogue::complaint_about_end(runtime.files());
        if (complaint && Combo1.ListCount() > 0)
            Combo1.ShowHint(*complaint);
    });
}

void MainWindow::fill_selector_lists() {
    catalogue::read_at_start(runtime.files(),
                             [this](const std::string& title) { Form3->List1.AddItem(title); });
    catalogue::copy_titles(Form3->selector_lists());
}

void MainWindow::draw_first_camera() {
    if (Form3->List1.ListCount() == 0)
        return;
    const float draw = runtime.random().Rnd() * static_cast<float>(Form3->List1.ListCount());
    const auto c = static_cast<short>(std::floor(draw));
    Combo1.Text = Combo1.List(c);
    Form2->Combo1.Text = Form2->Combo1.List(c);
}

} // namespace lookfar
