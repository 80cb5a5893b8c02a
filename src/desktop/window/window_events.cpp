#include "desktop/native/owned_by_qt.h"
#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"
#include "runtime/form.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QShortcut>
#include <QToolTip>

#include <utility>

namespace lookfar::desktop {

namespace {

bool asks_for_menu(const QKeyEvent& event) {
    const bool is_shift_f10 = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    return is_shift_f10 || event.key() == Qt::Key_Menu;
}

} // namespace

/// Once its form is gone, a view takes only the events that every object takes.
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
    const std::string_view text = drawn_.tool_tip(point);
    if (text.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(place, shown_text(text), this);
}

void WindowView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    drawn_.paint(painter, event->region(), palette());
    if (is_bare_dialog(*form_)) {
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(outline_of(rect()));
    }
    if (!coming_up_.isActive() || is_previewed_)
        return;
    coming_up_.stop();
    first_look_.withdraw();
    QMetaObject::invokeMethod(this, &WindowView::tell_that_it_is_seen, Qt::QueuedConnection);
    windows_.synchronise_later();
}

void WindowView::tell_that_it_is_seen() {
    if (is_live_)
        windows_.actions().deliver(*form_, [this] { form_->Seen.raise(); });
}

/// Whether the window closes is for the form to decide, so Qt never closes it.
void WindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (is_leaving())
        return;
    windows_.actions().deliver(*form_, [this] { form_->request_close(); });
}

void WindowView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        coming_forward_.stop();
        windows_.synchronise_later();
    }
    if (event->type() != QEvent::WindowStateChange || is_leaving())
        return;
    if (const auto state = frame_.state_by_user())
        windows_.actions().deliver(*form_, [this, state] { form_->apply_state(*state); });
}

void WindowView::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!windows_.actions().are_suspended())
        frame_.report_move();
}

void WindowView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    coming_up_.stop();
    coming_forward_.stop();
    drawn_.pictures().drop_all();
}

void WindowView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        natives_.press_button_by_enter();
    else if (asks_for_menu(*event))
        windows_.actions().deliver(*form_, [this] { form_->MenuKey.raise(); });
    else
        QWidget::keyPressEvent(event);
}

void WindowView::bind_keys() {
    if (form_->CopyKey.is_connected())
        bind_key(QKeySequence::Copy, [this] { form_->CopyKey.raise(); });
    if (form_->ReloadKey.is_connected())
        bind_key(Qt::Key_F5, [this] { form_->ReloadKey.raise(); });
    if (form_->AddressGiven.is_connected())
        bind_key(QKeySequence::Paste, [this] {
            const auto* const copied = QGuiApplication::clipboard()->mimeData();
            if (const auto given = copied ? given_address(*copied) : std::nullopt)
                give(*given);
        });
}

void WindowView::bind_key(const QKeySequence& key, std::function<void()> act) {
    auto* const shortcut = owned_by_qt<QShortcut>(key, this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, [this, act = std::move(act)] {
        if (is_live_)
            windows_.actions().deliver(*form_, act);
    });
}

void WindowView::give(const GivenAddress& given) {
    form_->AddressGiven.raise(given.address, given.title);
}

void WindowView::dragEnterEvent(QDragEnterEvent* event) {
    const bool may_drop = is_live_ && !QApplication::activeModalWidget() &&
                          event->possibleActions() & (Qt::CopyAction | Qt::LinkAction);
    dragged_in_ = may_drop ? given_address(*event->mimeData()) : std::nullopt;
    event->setAccepted(dragged_in_.has_value());
}

/// Whatever the other program would rather do, it is left with what it gives.
void WindowView::dropEvent(QDropEvent* event) {
    const bool may_copy = event->possibleActions().testFlag(Qt::CopyAction);
    event->setDropAction(may_copy ? Qt::CopyAction : Qt::LinkAction);
    event->accept();
    if (const auto given = std::exchange(dragged_in_, std::nullopt))
        windows_.actions().deliver(*form_, [this, &given] { give(*given); });
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
    mouse_.move(event->buttons(), event->position());
}

} // namespace lookfar::desktop
