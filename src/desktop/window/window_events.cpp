#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_frame.h"
#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"
#include "runtime/controls/buttons.h"
#include "runtime/form.h"

#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QToolTip>

#include <ranges>

namespace lookfar::desktop {

namespace {

WindowState window_state_of(Qt::WindowStates states) {
    if (states.testFlag(Qt::WindowMinimized))
        return WindowState::minimised;
    return states.testFlag(Qt::WindowMaximized) ? WindowState::maximised : WindowState::normal;
}

bool asks_for_menu(const QKeyEvent& event) {
    const bool is_shift_f10 = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    return is_shift_f10 || event.key() == Qt::Key_Menu;
}

} // namespace

/// A view whose form is gone takes no more events than every object does.
bool WindowView::event(QEvent* event) {
    if (!form_)
        return QObject::event(event);
    if (event->type() == QEvent::UpdateRequest)
        windows_.synchronise();
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        show_tool_tip(help->globalPos(), help->pos());
        return true;
    }
    return QWidget::event(event);
}

void WindowView::show_tool_tip(const QPoint& place, const QPointF& point) {
    const std::string text = drawn_.tool_tip(point);
    if (text.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(place, shown_text(text), this);
}

void WindowView::paintEvent(QPaintEvent* event) {
    const QSize device_size = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (canvas_.size() != device_size)
        canvas_ = QImage(device_size, QImage::Format_RGB32);
    canvas_.setDevicePixelRatio(devicePixelRatioF());
    QPainter canvas_painter(&canvas_);
    drawn_.paint(canvas_painter, event->region(), palette());
    if (is_bare_dialog(*form_)) {
        canvas_painter.setPen(palette().color(QPalette::Dark));
        canvas_painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    canvas_painter.end();
    QPainter(this).drawImage(QPoint(), canvas_);
}

/// Qt's own closing is never wanted: the window decides, and hides by its property.
void WindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    windows_.actions().deliver(*form_, [this] { form_->request_close(); });
}

void WindowView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool is_news = event->type() == QEvent::WindowStateChange && isVisible();
    if (is_news && windowState() != window_states(*form_, screen()->size()))
        windows_.actions().deliver(*form_,
                                   [this] { form_->WindowState = window_state_of(windowState()); });
}

void WindowView::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    const bool is_own_move = windows_.actions().are_suspended() || pos() == position_;
    if (!isVisible() || is_own_move || windowState() != Qt::WindowNoState)
        return;
    position_ = pos();
    form_->Left.follow(to_twips(position_->x()));
    form_->Top.follow(to_twips(position_->y()));
}

void WindowView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    drawn_.pictures().drop_all();
    canvas_ = QImage();
}

void WindowView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        press_button_by_enter();
    else if (asks_for_menu(*event))
        windows_.actions().deliver(*form_, [this] { form_->MenuKey.raise(); });
    else
        QWidget::keyPressEvent(event);
}

void WindowView::press_button_by_enter() {
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (!button)
        button = default_button();
    if (button)
        button->click();
}

QPushButton* WindowView::default_button() const {
    for (const NativeControl& native : std::views::values(natives_)) {
        auto* const button = qobject_cast<QPushButton*>(&*native.widget);
        if (button && button->isDefault() && button->isVisible())
            return button;
    }
    return nullptr;
}

void WindowView::mousePressEvent(QMouseEvent* event) {
    mouse_.press(event->button(), event->position());
}

void WindowView::mouseReleaseEvent(QMouseEvent* event) {
    mouse_.release(event->button(), event->position());
}

void WindowView::mouseDoubleClickEvent(QMouseEvent* event) {
    mouse_.double_click(event->button(), event->position());
}

void WindowView::mouseMoveEvent(QMouseEvent* event) {
    mouse_.move(event->position());
}

} // namespace lookfar::desktop
