#include "pipeline/fullscreen_window.h"

#include "acquisition/main_window.h"
#include "acquisition/picture_file.h"
#include "pipeline/blur.h"

#include <algorithm>
#include <string_view>

namespace lookfar {

namespace {

char lower(char character) {
    const bool is_capital = character >= 'A' && character <= 'Z';
    return is_capital ? static_cast<char>(character + ('a' - 'A')) : character;
}

/// Whether the three letters stand in a row anywhere in the URL, in any case.
bool names_a_gif(std::string_view url) {
    constexpr std::string_view letters = "gif";
    return !std::ranges::search(url, letters, {}, lower).empty();
}

} // namespace

void FullscreenWindow::Timer1_Timer() {
    if (Combo1.Text == Label1.Caption)
        return;
    attempt_each({
        [&] { Label8.Caption = "0"; },
        [&] { runtime.files().Kill(picture_path(runtime)); },
    });
}

void FullscreenWindow::Timer2_Timer() {
    Label2.Visible = !Label2.Visible;
    if (!Label3.Visible)
        Label3.Visible = true;
}

void FullscreenWindow::Timer3_Timer() {
    if (Timer2.Enabled)
        attempt_each({
            [&] { Timer4.Enabled = false; },
            [&] { Image3.Visible = false; },
            [&] { TestBild.Visible = true; },
            [&] { Label8.Caption = "0"; },
        });
    else
        attempt_each({
            [&] { Timer4.Enabled = true; },
            [&] { Image3.Visible = true; },
            [&] { TestBild.Visible = false; },
        });
}

void FullscreenWindow::Timer4_Timer() {
    if (names_a_gif(Form1->Text3.Text.get()))
        return;
    if (Label8.Caption == "0") {
        if (Form1->Check2.Value == 1) {
            BlurPicture(Picture1);
            Image3.Picture = Picture1.Picture;
            Form1->ImagNT1.Picture = Picture1.Picture;
            Label8.Caption = "1";
        } else {
            Image3.Picture = Picture1.Picture;
            Form1->ImagNT1.Picture = Picture1.Picture;
        }
    }
    Form1->StatusBar1.Text = Label4.Caption;
}

void FullscreenWindow::Combo1_Click() {
    Label4.Caption = "Loading '" + Combo1.Text + "' ...";
    if (Form1->Combo1.ListIndex != Combo1.ListIndex)
        Form1->Combo1.ListIndex = Combo1.ListIndex;
}

} // namespace lookfar
