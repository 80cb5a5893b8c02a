#pragma once

#include <cstdint>
#include <string_view>

namespace lookfar {

/// Twips to a logical pixel; geometry is kept in twips, as floats, never rounded.
inline constexpr float twips_per_pixel = 15.0F;

/// A size in twips.
struct Size {
    float Width = 0;
    float Height = 0;
    bool operator==(const Size&) const = default;
};

/// A rectangle in twips, from the top left corner of the window.
struct Bounds {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    bool operator==(const Bounds&) const = default;
};

/// Red in the low byte, written 0x00BBGGRR; values with the top bit set are colours of the
/// desktop's own palette.
using Colour = std::uint32_t;

namespace colour {
inline constexpr Colour black = 0x00000000;
inline constexpr Colour white = 0x00FFFFFF;
inline constexpr Colour button_face = 0x8000000F;
inline constexpr Colour button_text = 0x80000012;
inline constexpr Colour window_background = 0x80000005;
inline constexpr Colour window_text = 0x80000008;
} // namespace colour

/// A font by family and size in points, a point being 20 twips.
struct Font {
    std::string_view Name = "MS Sans Serif";
    float Size = 8.25F;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool operator==(const Font&) const = default;
};

enum class Alignment { left, right, centre };
enum class BackStyle { transparent, opaque };
enum class LabelBorder { none, fixed_single };
enum class ShapeKind : short { rectangle = 0, oval = 2, circle = 3 };
enum class BorderStyle : short { transparent = 0, solid = 1 };
enum class FillStyle : short { solid = 0, transparent = 1 };

/// How a shape's pixels meet those behind it.
enum class DrawMode : short { copy_pen = 13, merge_pen = 15 };

/// When a screen reader tells a text that has changed: never by itself, once it has finished what
/// it is saying, or at once.
enum class Announcement { none, polite, assertive };

enum class MousePointer : short { standard = 0, hourglass = 11 };

/// How a window is framed.
enum class FormBorder : short {
    none = 0,
    fixed_single = 1,
    fixed_dialog = 3,
    fixed_tool_window = 4
};

enum class WindowState : short { normal = 0, minimised = 1, maximised = 2 };

} // namespace lookfar
