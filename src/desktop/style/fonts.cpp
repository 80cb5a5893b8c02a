#include "desktop/style/fonts.h"

#include "desktop/style/geometry.h"
#include "desktop/style/laid_out_text.h"
#include "desktop/style/texts.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace lookfar::desktop {

namespace {

constexpr float twips_per_point = 20;

struct Substitute {
    std::string_view missing;
    const char* family;
    QFont::Weight weight;
};

constexpr std::array substitutes{
    Substitute{"MS Sans Serif", "Liberation Sans", QFont::Normal},
    Substitute{"Arial", "Liberation Sans", QFont::Normal},
    Substitute{"Arial Black", "Liberation Sans", QFont::Black},
    Substitute{"Courier New", "Liberation Mono", QFont::Normal},
};

QFont family_or_substitute(const Substitute& substitute) {
    const QString family = QString::fromLatin1(substitute.missing);
    if (QFontDatabase::hasFamily(family))
        return QFont(family);
    QFont font(substitute.family);
    font.setWeight(substitute.weight);
    return font;
}

QFont family_font(std::string_view name) {
    // Whether a family is there is asked once: each answer takes a walk through all of them.
    static const auto fonts = [] {
        std::array<QFont, substitutes.size()> all;
        std::ranges::transform(substitutes, all.begin(), family_or_substitute);
        return all;
    }();
    const auto* const substitute = std::ranges::find(substitutes, name, &Substitute::missing);
    if (substitute == substitutes.end())
        return QFont(QString::fromLatin1(name));
    return fonts.at(static_cast<std::size_t>(substitute - substitutes.begin()));
}

/// Upright letters are given the room that they take, all the same in a font of fixed pitch.
int overhang(const QFont& font, const QString& line) {
    if (!font.italic())
        return 0;
    const QFontMetrics metrics(font);
    return std::max(0, metrics.boundingRect(line).right() + 1 - metrics.horizontalAdvance(line));
}

QSize plain_size(const QString& text, const QFont& font) {
    const QFontMetrics metrics(font);
    constexpr int no_flags = 0;
    QSize size = metrics.size(no_flags, text);
    int beyond = 0;
    for (const QString& line : text.split('\n'))
        beyond = std::max(beyond, overhang(font, line));
    return {size.width() + beyond, size.height()};
}

QSize symbols_size(const QString& text, int size) {
    return {static_cast<int>(text.size()) * size, size};
}

} // namespace

QFont screen_font(const Font& font) {
    QFont result = family_font(font.Name);
    result.setPixelSize(pixel_size(font));
    if (font.Bold)
        result.setWeight(std::max(result.weight(), QFont::Bold));
    result.setItalic(font.Italic);
    result.setUnderline(font.Underline);
    return result;
}

int pixel_size(const Font& font) {
    return std::max(1, to_whole_pixels(font.Size * twips_per_point));
}

bool is_symbol_font(const Font& font) {
    return font.Name == "Webdings";
}

Size measure_text(const std::string& text, const Font& font) {
    const QString shown = shown_text(text);
    const QSize size = is_symbol_font(font) ? symbols_size(shown, pixel_size(font))
                                            : plain_size(shown, screen_font(font));
    return {to_twips(size.width()), to_twips(size.height())};
}

Size measure_wrapped_text(const std::string& text, const Font& font, float width) {
    const LaidOutText wrapped(shown_text(text), screen_font(font), Qt::AlignLeft, to_pixels(width),
                              QTextOption::WrapAtWordBoundaryOrAnywhere);
    return {width, to_twips(static_cast<int>(std::ceil(wrapped.height())))};
}

} // namespace lookfar::desktop
