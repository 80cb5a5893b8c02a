#include "desktop/style/colours.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

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

/// As the Web Content Accessibility Guidelines define it: 0 for black, 1 for white.
double luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
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

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor rim_colour(const QColor& text) {
    return contrast(text, Qt::white) > contrast(text, Qt::black) ? Qt::white : Qt::black;
}

QColor readable_on(const QColor& ground, const QColor& colour) {
    constexpr double brightest_dark_ground = 0.18;
    constexpr double enough_contrast = 4.5;
    QColor readable = colour;
    if (luminance(ground) > brightest_dark_ground)
        return readable;
    for (int lightness = colour.lightness(); contrast(readable, ground) < enough_contrast;
         ++lightness)
        readable.setHsl(colour.hslHue(), colour.hslSaturation(), lightness);
    return readable;
}

} // namespace lookfar::desktop
