#include "desktop/native/hint.h"

#include <QEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTimer>
#include <QToolTip>

#include <chrono>

namespace lookfar::desktop {

namespace {

constexpr std::chrono::seconds longest_shown(10);
constexpr int gap = 2;
constexpr int room_around_text = 3;

/// Whether the user has read a hint, and goes on.
bool ends_hint(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::FocusOut:
    case QEvent::Hide:
        return true;
    default:
        return false;
    }
}

} // namespace

Hint::Hint(const QString& text, QWidget& widget, QWidget& window) : QLabel(text, &window) {
    setTextFormat(Qt::PlainText);
    setPalette(QToolTip::palette());
    setForegroundRole(QPalette::ToolTipText);
    setMargin(room_around_text);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    adjustSize();
    move(widget.geometry().bottomLeft() + QPoint(0, gap));
    show();
    widget.installEventFilter(this);
    QTimer::singleShot(longest_shown, this, &QObject::deleteLater);
}

void Hint::paintEvent(QPaintEvent* event) {
    QStyleOptionFrame option;
    option.initFrom(this);
    QStylePainter(this).drawPrimitive(QStyle::PE_PanelTipLabel, option);
    QLabel::paintEvent(event);
}

bool Hint::eventFilter(QObject* object, QEvent* event) {
    if (ends_hint(*event))
        deleteLater();
    return QLabel::eventFilter(object, event);
}

} // namespace lookfar::desktop
