#include "desktop/native/hint.h"

#include <QApplication>
#include <QEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace lookfar::desktop {

namespace {

constexpr int gap = 2;
constexpr int room_around_text = 3;

/// What is long in a hint is a name; the reason behind it must be seen.
QString without_middle(const QString& text) {
    constexpr qsizetype longest_start = 60;
    constexpr qsizetype longest_end = 140;
    if (text.size() <= longest_start + longest_end)
        return text;
    return text.left(longest_start) + QChar(0x2026) + text.right(longest_end);
}

/// The width of the text's lines.
int line_width(const QLabel& label, const QWidget& widget) {
    const int unbroken = label.fontMetrics().horizontalAdvance(label.text()) + 1;
    return std::min(unbroken, widget.width() - 2 * room_around_text);
}

} // namespace

Hint::Hint(const QString& text, const QWidget& widget, QWidget& window)
    : QLabel(without_middle(text), &window),
      lines_(this->text(), font(), Qt::AlignLeft, line_width(*this, widget),
             QTextOption::WrapAtWordBoundaryOrAnywhere) {
    setTextFormat(Qt::PlainText);
    setPalette(QToolTip::palette());
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const int height = static_cast<int>(std::ceil(lines_.height())) + 2 * room_around_text;
    const int lowest = window.height() - height - gap;
    setGeometry(widget.x(), std::min(widget.geometry().bottom() + gap, lowest),
                line_width(*this, widget) + 2 * room_around_text, height);
    show();
    qApp->installEventFilter(this);
}

void Hint::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionFrame option;
    option.initFrom(this);
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_PanelTipLabel, option);
    painter.setPen(palette().color(QPalette::ToolTipText));
    lines_.draw(painter, QPointF(room_around_text, room_around_text));
}

void Hint::hideEvent(QHideEvent* event) {
    QLabel::hideEvent(event);
    deleteLater();
}

bool Hint::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress)
        hide();
    return QLabel::eventFilter(object, event);
}

} // namespace lookfar::desktop
