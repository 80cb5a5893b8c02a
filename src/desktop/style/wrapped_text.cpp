#include "desktop/style/wrapped_text.h"

#include <QTextOption>

namespace lookfar::desktop {

namespace {

QString with_line_separators(QString text) {
    return text.replace('\n', QChar::LineSeparator);
}

} // namespace

WrappedText::WrappedText(const QString& text, const QFont& font, Qt::Alignment alignment,
                         double width)
    : layout_(with_line_separators(text), font) {
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    lay_out(width);
}

void WrappedText::lay_out(double width) {
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height_});
        height_ += line.height();
    }
    layout_.endLayout();
}

void WrappedText::draw(QPainter& painter, const QPointF& top_left) const {
    layout_.draw(&painter, top_left);
}

} // namespace lookfar::desktop
