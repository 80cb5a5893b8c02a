#include "acquisition/main_window.h"

#include "acquisition/picture_file.h"
#include "pipeline/fullscreen_window.h"
#include "runtime/numbers.h"

#include <algorithm>
#include <limits>

namespace lookfar {

namespace {

/// Scales an image of its picture's natural size into an area, as large as it fits whole, and
/// centres it there. No step rounds.
void fit(Image& image, const Bounds& area) {
    const float width_ratio = area.Width / image.Width;
    const float height_ratio = area.Height / image.Height;
    image.Stretch = true;
    if (width_ratio < height_ratio) {
        image.Width = image.Width * width_ratio;
        image.Height = image.Height * width_ratio;
    } else {
        image.Height = image.Height * height_ratio;
        image.Width = image.Width * height_ratio;
    }
    image.Left = area.Width / 2 - image.Width / 2 + area.Left;
    image.Top = area.Height / 2 - image.Height / 2 + area.Top;
}

/// Whole seconds between two readings of the clock, negative where somebody has set it back.
/// Midnight sets it back by a day.
short whole_seconds(float start, float end) {
    constexpr float seconds_a_day = 86400;
    const float step = end - start;
    const float duration = step < -seconds_a_day / 2 ? step + seconds_a_day : step;
    using Limits = std::numeric_limits<short>;
    return round_to_short(std::clamp<float>(duration, Limits::min(), Limits::max()));
}

} // namespace

// The text that a caller gives may change while the handler waits, so that this is a copy.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void MainWindow::GetRESOURCE(std::string url) {
    const float start = runtime.SecondsSinceMidnight();
    const std::string title = Form2->Label1.Caption;
    try {
        MousePointer = MousePointer::hourglass;
        runtime.DoEvents();
        PictureFile file(runtime, Inet1.OpenURL(url, DataType::icByteArray), title);

        show_in_fullscreen_window(file);
        show_in_main_window(file);
        Form2->Picture1.Picture = file.load();
        name_pictures(title);

        Image1.Visible = false;
        Label2.Visible = false;
        Label3.Visible = false;
        ImagNT1.Visible = true;
        Form2->Image2.Visible = false;
        Form2->Timer2.Enabled = false;
        Form2->Label2.Visible = false;
        Form2->Label3.Visible = false;
    } catch (const Failure& failure) {
        if (failure.Kind == FailureKind::transfer_busy)
            clear_error_display();
        else
            show_error(failure);
    }
    report_duration(start);
    // The busy mark is up until a fetch succeeds. Of a failure the error display tells.
    if (!Form2->Image2.Visible)
        announce_new_picture();
}

void MainWindow::show_in_fullscreen_window(PictureFile& file) {
    Form2->Image3.Visible = false;
    Form2->Picture1.Picture = file.load();
    Form2->Image3.Picture = Form2->Picture1.Picture;
    fit_in_fullscreen_window();
    Form2->Image3.Visible = true;
}

void MainWindow::fit_in_fullscreen_window() {
    Form2->Image3.Stretch = false;
    Form2->Image3.Left = 0;
    Form2->Image3.Top = 0;
    fit(Form2->Image3, {.Left = 0, .Top = 0, .Width = Form2->Width, .Height = Form2->Height});
}

void MainWindow::show_in_main_window(PictureFile& file) {
    ImagNT1.Visible = false;
    ImagNT1.Stretch = false;
    ImagNT1.Picture = file.load();
    ImagNT1.Stretch = true;
    fit(ImagNT1, Label4.bounds());
}

void MainWindow::clear_error_display() {
    Label2.Visible = false;
    Label3.Visible = false;
    ImagNT1.Visible = true;
    Form2->Image3.Visible = true;
    Form2->Timer2.Enabled = false;
    Form2->Label2.Visible = false;
    Form2->Label3.Visible = false;
}

void MainWindow::show_error(const Failure& failure) {
    write_error_captions(failure);
    Label2.Visible = true;
    Label3.Visible = true;
    Form2->Label3.Visible = true;
    ImagNT1.Visible = false;
    Form2->Image3.Visible = false;
    Form2->Timer2.Enabled = true;
    Form2->Picture1.Picture = ImagNT1.Picture;
}

void MainWindow::write_error_captions(const Failure& failure) {
    const std::string number = "Error #" + number_text_with_blank(failure.Number).substr(1) + " ";
    Label2.Caption = number;
    Label3.Caption = failure.Description;
    Form2->Label2.Caption = number;
    Form2->Label3.Caption = failure.Description;
}

void MainWindow::report_duration(float start) {
    const short seconds = whole_seconds(start, runtime.SecondsSinceMidnight());
    Form2->Label7.Caption = number_text(seconds);
    Form2->Label4.Caption = "Screenshot taken: " + runtime.TimeOfDay() + " (" +
                            number_text_with_blank(seconds) + " Sec/Pic )";
}

void MainWindow::name_pictures(const std::string& title) {
    const std::string name = "Camera picture: " + title;
    ImagNT1.AccessibleName = name;
    Form2->Image3.AccessibleName = name;
}

void MainWindow::announce_new_picture() {
    StatusBar1.Announce(Form2->Label4.Caption);
    Form2->Label4.Announce(Form2->Label4.Caption);
}

std::string MainWindow::GetHTML(const std::string& WWW_Adresse) {
    try {
        Inet1.AccessType = 1;
        Inet1.Protocol = 4;
        const auto body = Inet1.OpenURL(WWW_Adresse, DataType::icString);
        return {body->bytes->begin(), body->bytes->end()};
    } catch (const Failure& failure) {
        write_error_captions(failure);
        Label2.Visible = true;
        Label3.Visible = true;
        Form2->Timer2.Enabled = true;
        ImagNT1.Visible = false;
        Form2->Image3.Visible = false;
        Form2->Picture1.Picture = ImagNT1.Picture;
        return {};
    }
}

} // namespace lookfar
