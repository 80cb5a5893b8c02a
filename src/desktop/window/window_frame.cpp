#include "desktop/window/window_frame.h"

#include "desktop/style/geometry.h"
#include "runtime/form.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

namespace {

Qt::WindowFlags title_bar(const Form& form) {
    Qt::WindowFlags flags = Qt::WindowTitleHint;
    if (!form.Design.ControlBox)
        return flags;
    flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (form.Design.MinButton && form.Design.Border == FormBorder::fixed_single)
        flags |= Qt::WindowMinimizeButtonHint;
    return flags;
}

WindowState window_state_of(Qt::WindowStates states) {
    if (states.testFlag(Qt::WindowMinimized))
        return WindowState::minimised;
    return states.testFlag(Qt::WindowMaximized) ? WindowState::maximised : WindowState::normal;
}

/// What the window manager adds to the size of a window. It frames a window only when that is
/// shown, so the largest frame of those that are visible stands for it.
QSize usual_frame() {
    QSize frame(0, 0);
    for (const QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible())
            frame = frame.expandedTo(window->frameGeometry().size() - window->size());
    return frame;
}

/// The window itself comes to know its new screen only after it was moved there.
QRect screen_at(const QPoint& point, const QWidget& window) {
    const QScreen* const screen = QGuiApplication::screenAt(point);
    return (screen ? screen : window.screen())->geometry();
}

} // namespace

Qt::WindowFlags window_flags(const Form& form) {
    // A dialog that merely asks for no title bar gets one on Wayland.
    if (form.Design.Border == FormBorder::none || is_bare_dialog(form))
        return Qt::Window | Qt::FramelessWindowHint;
    return Qt::Window | Qt::CustomizeWindowHint | title_bar(form);
}

bool is_bare_dialog(const Form& form) {
    return form.Design.Border == FormBorder::fixed_dialog && !form.Design.ControlBox;
}

void WindowFrame::apply(QScreen& screen) {
    if (!window_.isVisible())
        apply_screen(screen);
    apply_size();
    apply_position();
    apply_state();
}

/// The screen may be another one than last time, or may stand elsewhere. A window that stood on a
/// larger one may have its place outside of this one; on the same screen it stays where its user
/// has put it.
void WindowFrame::apply_screen(QScreen& screen) {
    window_.setScreen(&screen);
    const QRect before = std::exchange(screen_, screen.geometry());
    const bool is_another = before.topLeft() != screen_.topLeft();
    if (is_another)
        position_.reset();
    if (is_another || before.size().expandedTo(screen_.size()) != screen_.size())
        keep_on_screen(screen_.size());
}

void WindowFrame::keep_on_screen(const QSize& screen) {
    const QRect place(position(), client_size());
    if (QRect(QPoint(), screen).contains(place.center()))
        return;
    const QSize room = (screen - place.size()).expandedTo({0, 0});
    form_.Left.store(to_twips(std::clamp(place.left(), 0, room.width())));
    form_.Top.store(to_twips(std::clamp(place.top(), 0, room.height())));
}

void WindowFrame::apply_size() {
    const QSize size = client_size();
    if (!covers_screen()) {
        window_.setFixedSize(size);
        return;
    }
    // Window managers keep a window of fixed size from covering the task bars.
    window_.setMinimumSize(0, 0);
    window_.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window_.resize(size);
}

void WindowFrame::apply_position() {
    if (form_.Design.CentredOnScreen && centred_size_.isEmpty())
        centre_on_screen(client_size() + usual_frame());
    if (std::exchange(position_, position()) != position())
        window_.move(screen_.topLeft() + position());
}

void WindowFrame::centre_on_screen(const QSize& size) {
    centred_size_ = size;
    QRect place(QPoint(), size);
    place.moveCenter(QRect(QPoint(), window_.screen()->size()).center());
    form_.Left.store(to_twips(place.left()));
    form_.Top.store(to_twips(place.top()));
}

void WindowFrame::apply_state() {
    const Qt::WindowStates wanted = wanted_states();
    if (window_.windowState() != wanted)
        window_.setWindowState(wanted);
}

void WindowFrame::report_move() {
    const QSize size = window_.frameGeometry().size();
    // While the window manager sets its frame up, Qt may take that for smaller than the
    // window.
    const bool has_frame = size != window_.size() && size == size.expandedTo(window_.size());
    if (form_.Design.CentredOnScreen && has_frame && size != centred_size_) {
        centre_on_screen(size);
        return;
    }
    const QPoint place = window_.pos();
    const bool is_elsewhere = window_.isVisible() && place - screen_.topLeft() != position_;
    if (!is_elsewhere || window_.windowState() != Qt::WindowNoState)
        return;
    screen_ = screen_at(window_.frameGeometry().center(), window_);
    position_ = place - screen_.topLeft();
    form_.Left.store(to_twips(position_->x()));
    form_.Top.store(to_twips(position_->y()));
}

std::optional<WindowState> WindowFrame::state_by_user() const {
    if (!window_.isVisible() || window_.windowState() == wanted_states())
        return std::nullopt;
    return window_state_of(window_.windowState());
}

QPoint WindowFrame::position() const {
    return {to_whole_pixels(form_.Left), to_whole_pixels(form_.Top)};
}

QSize WindowFrame::client_size() const {
    return {to_whole_pixels(form_.Width), to_whole_pixels(form_.Height)};
}

bool WindowFrame::covers_screen() const {
    const QSize size = client_size();
    const QSize screen = window_.screen()->size();
    return form_.Design.Border == FormBorder::none && size.width() >= screen.width() &&
           size.height() >= screen.height();
}

Qt::WindowStates WindowFrame::wanted_states() const {
    if (form_.WindowState == WindowState::minimised)
        return Qt::WindowMinimized;
    if (covers_screen())
        return Qt::WindowFullScreen;
    return form_.WindowState == WindowState::maximised ? Qt::WindowMaximized : Qt::WindowNoState;
}

} // namespace lookfar::desktop
