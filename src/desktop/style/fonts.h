#pragma once

#include "runtime/look.h"

#include <QFont>

#include <string>

namespace lookfar::desktop {

/// The installed font that stands for a font of the windows, by metric where the family itself
/// is missing.
QFont screen_font(const Font& font);

/// A font's size in whole logical pixels.
int pixel_size(const Font& font);

/// Whether the font's characters are symbols, which are drawn as paths (`draw_symbols`).
bool is_symbol_font(const Font& font);

/// The room that a text takes without wrapping, in twips; lines are parted by line feeds. The
/// overhang of slanted letters is counted in.
Size measure_text(const std::string& text, const Font& font);

/// The same for a text that is wrapped at a width in twips.
Size measure_wrapped_text(const std::string& text, const Font& font, float width);

} // namespace lookfar::desktop
