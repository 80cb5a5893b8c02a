#include "desktop/style/laid_out_text.h"

#include <QGlyphRun>
#include <QRawFont>

namespace lookfar::desktop {

namespace {

QString with_line_separators(QString text) {
    return text.replace('\n', QChar::LineSeparator);
}

QRectF letters_of(const QGlyphRun& run) {
    const QRawFont font = run.rawFont();
    const auto glyphs = run.glyphIndexes();
    const auto positions = run.positions();
    QRectF letters;
    for (qsizetype index = 0; index < glyphs.size(); ++index)
        letters |= font.boundingRect(glyphs[index]).translated(positions[index]);
    return letters;
}

} // namespace

LaidOutText::LaidOutText(const QString& text, const QFont& font, Qt::Alignment alignment,
                         double width, QTextOption::WrapMode wrapping)
    : layout_(with_line_separators(text), font) {
    QTextOption option(alignment);
    option.setWrapMode(wrapping);
    layout_.setTextOption(option);
    lay_out(width);
}

void LaidOutText::lay_out(double width) {
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height_});
        height_ += line.height();
    }
    layout_.endLayout();
}

QRectF LaidOutText::extent() const {
    QRectF extent;
    for (int line = 0; line < layout_.lineCount(); ++line)
        extent |= layout_.lineAt(line).naturalTextRect();
    for (const QGlyphRun& run : layout_.glyphRuns())
        extent |= letters_of(run);
    return extent;
}

void LaidOutText::draw(QPainter& painter, const QPointF& top_left) const {
    layout_.draw(&painter, top_left);
}

} // namespace lookfar::desktop
