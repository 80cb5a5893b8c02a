#include "desktop/pointer_rest.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <chrono>
#include <utility>

namespace lookfar::desktop {

namespace {

/// Qt moves the mouse over widgets by itself, where they come and go; only what comes to
/// a window is the user's.
bool is_by_mouse(const QObject& watched, const QEvent& event) {
    if (!watched.isWindowType())
        return false;
    switch (event.type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

/// Whether another window may be the one in use now, a list or a menu included, or the same one
/// cover the screen.
bool changes_windows(const QObject& watched, const QEvent& event) {
    if (!watched.isWidgetType() || !static_cast<const QWidget&>(watched).isWindow())
        return false;
    switch (event.type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::WindowStateChange:
        return true;
    default:
        return false;
    }
}

bool may_hide() {
    const QWidget* const window = QApplication::activeWindow();
    return window && window->isVisible() && window->isFullScreen() &&
           !QApplication::activePopupWidget();
}

} // namespace

PointerRest::PointerRest() {
    constexpr std::chrono::seconds long_enough(3);
    rest_.setSingleShot(true);
    rest_.setInterval(long_enough);
    rest_.callOnTimeout([this] { hide(); });
}

bool PointerRest::eventFilter(QObject* watched, QEvent* event) {
    if (is_by_mouse(*watched, *event) || changes_windows(*watched, *event)) {
        bring_back();
        wait_for_rest();
    }
    return QObject::eventFilter(watched, event);
}

void PointerRest::wait_for_rest() {
    if (may_hide())
        rest_.start();
    else
        rest_.stop();
}

void PointerRest::hide() {
    if (!may_hide())
        return;
    is_hidden_ = true;
    QGuiApplication::setOverrideCursor(Qt::BlankCursor);
}

void PointerRest::bring_back() {
    if (std::exchange(is_hidden_, false))
        QGuiApplication::restoreOverrideCursor();
}

} // namespace lookfar::desktop
