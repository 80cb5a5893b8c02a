#include "desktop/style/colours.h"

#include <QPalette>

namespace lookfar::desktop {

namespace {

constexpr Colour system_colour_bit = 0x80000000;

QPalette::ColorRole role_of(Colour system_colour) {
    switch (system_colour) {
    case colour::button_text:
        return QPalette::ButtonText;
    case colour::window_background:
        return QPalette::Base;
    case colour::window_text:
        return QPalette::Text;
    default:
        return QPalette::Window;
    }
}

int channel(Colour value, unsigned shift) {
    return static_cast<int>(value >> shift & 0xFFU);
}

} // namespace

short bits_per_pixel(int colour_bits) {
    constexpr int byte = 8;
    if (colour_bits <= byte)
        return byte;
    return colour_bits <= 2 * byte ? 2 * byte : 4 * byte;
}

QColor screen_colour(Colour value, const QPalette& palette) {
    if ((value & system_colour_bit) != 0)
        return palette.color(role_of(value));
    return {channel(value, 0), channel(value, 8), channel(value, 16)};
}

} // namespace lookfar::desktop
