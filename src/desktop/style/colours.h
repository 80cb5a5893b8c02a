#pragma once

#include "runtime/look.h"

#include <QColor>

class QPalette;

namespace lookfar::desktop {

/// The bits that a pixel takes on a screen of so many bits of colour: 8, 16 or 32.
short bits_per_pixel(int colour_bits);

/// The colour on the screen; a system colour is looked up in the palette.
QColor screen_colour(Colour value, const QPalette& palette);

/// The contrast of two colours as the Web Content Accessibility Guidelines define it: 1 for equal
/// ones, 21 for black and white.
double contrast(const QColor& one, const QColor& other);

/// Black or white, whichever a text of the colour stands out from more.
QColor rim_colour(const QColor& text);

/// The colour, made lighter as far as it takes to be read on a dark ground.
QColor readable_on(const QColor& ground, const QColor& colour);

} // namespace lookfar::desktop
