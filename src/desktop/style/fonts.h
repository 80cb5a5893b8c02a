#pragma once

#include "runtime/look.h"

#include <QFont>

#include <string>

namespace lookfar::desktop {

/// The installed font that stands for a font of the windows: one of the same family, or where that
/// is missing, one whose letters are about as wide.
QFont screen_font(const Font& font);

/// A font's size in whole logical pixels.
int pixel_size(const Font& font);

/// Whether the font's characters are symbols, which are drawn as paths (`draw_symbols`).
bool is_symbol_font(const Font& font);

/// The room that a text takes without wrapping, in twips, with the overhang of slanted letters.
/// Line feeds part its lines.
Size measure_text(const std::string& text, const Font& font);

/// The room that a text takes when it is wrapped at a width; both in twips.
Size measure_wrapped_text(const std::string& text, const Font& font, float width);

} // namespace lookfar::desktop
