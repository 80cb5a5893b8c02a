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

/// The room for a first line below the widget, behind a caption that leaves half of it.
QRect room_below(const QWidget& widget, const QRegion& captions, int line_height) {
    const QRect room(widget.x(), widget.geometry().bottom() + gap, widget.width(),
                     line_height + 2 * room_around_text);
    QRect free = room;
    for (const QRect& caption : captions.intersected(room))
        free.setLeft(std::max(free.left(), caption.right() + gap));
    return free.width() < room.width() / 2 ? room : free;
}

/// The width of the text's lines.
int line_width(const QLabel& label, const QRect& room) {
    const int unbroken = label.fontMetrics().horizontalAdvance(label.text()) + 1;
    return std::min(unbroken, room.width() - 2 * room_around_text);
}

} // namespace

Hint::Hint(const QString& text, const QWidget& widget, QWidget& window, const QRegion& captions)
    : QLabel(without_middle(text), &window),
      room_(room_below(widget, captions, fontMetrics().height())),
      lines_(this->text(), font(), Qt::AlignLeft, line_width(*this, room_),
             QTextOption::WrapAtWordBoundaryOrAnywhere) {
    setTextFormat(Qt::PlainText);
    setPalette(QToolTip::palette());
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const int width = line_width(*this, room_) + 2 * room_around_text;
    const int height = static_cast<int>(std::ceil(lines_.height())) + 2 * room_around_text;
    const int lowest = window.height() - height - gap;
    const bool is_behind_caption = room_.left() > widget.x();
    setGeometry(is_behind_caption ? room_.right() + 1 - width : room_.left(),
                std::min(room_.top(), lowest), width, height);
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
