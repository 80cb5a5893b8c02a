#include "acquisition/main_window.h"
#include "pipeline/fullscreen_window.h"
#include "runtime/numbers.h"

#include <array>
#include <cmath>

namespace lookfar {

namespace {

struct Scheme {
    Colour BrightColour;
    Colour DarkColour;
};

constexpr std::array schemes{
    Scheme{0x000000FF, 0x000000C0}, // red
    Scheme{0x0000FF00, 0x0000C000}, // green
    Scheme{0x00FF0000, 0x00C00000}, // blue
    Scheme{0x0000FFFF, 0x0000C0C0}, // yellow
};

void apply(const Scheme& scheme, FullscreenWindow& window) {
    window.Shape1.FillColor = scheme.DarkColour;
    window.Shape1.BorderColor = scheme.BrightColour;
    window.Shape2.FillColor = scheme.DarkColour;
    window.Line1.BorderColor = scheme.BrightColour;
    window.Shape3.FillColor = scheme.DarkColour;
    window.Shape3.BorderColor = scheme.DarkColour;
    window.Shape4.FillColor = scheme.BrightColour;
    window.Shape5.BorderColor = scheme.BrightColour;
    window.Shape6.FillColor = scheme.DarkColour;
    window.Combo1.BackColor = scheme.DarkColour;
}

} // namespace

void MainWindow::draw_colour_scheme() {
    runtime.random().Randomize(runtime.SecondsSinceMidnight());
    float n = 0;
    do
        n = std::floor(runtime.random().Rnd() * schemes.size()) + 1;
    while (Val(Label5.Caption) == n);
    Label5.Caption = number_text(n);
    apply(schemes[static_cast<std::size_t>(n) - 1], *Form2);
}

} // namespace lookfar
