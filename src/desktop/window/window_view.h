#pragma once

#include "desktop/drawn/drawn_controls.h"
#include "desktop/drawn/mouse_router.h"
#include "desktop/exchange/given_address.h"
#include "desktop/window/first_look.h"
#include "desktop/window/native_children.h"
#include "desktop/window/window_frame.h"

#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace lookfar {
class Control;
class Element;
class Form;
class MenuItem;
class PopupMenu;
} // namespace lookfar

namespace lookfar::desktop {

class Hint;
class Windows;

/// One window on the screen: hands what the form says to the window's frame, native widgets and
/// drawn controls, and the window's events to them and to the handlers. While its form is hidden it
/// shows no change; it takes everything over when that is shown. `Windows` says when a window goes
/// whose form was hidden.
class WindowView : public QWidget {
  public:
    WindowView(Form& form, Windows& windows, const QIcon& icon);

    /// Takes the icon, if the form says that it has one.
    void apply_icon(const QIcon& icon);
    /// Takes over what the form itself says.
    void synchronise_window();
    /// Takes over what a control says.
    void synchronise(Control& control);
    bool is_main_window() const;
    /// Whether the window lies over a whole screen just now.
    bool covers_screen() const;
    /// Whether the window has been shown and is not painted yet. That lasts for two seconds at
    /// most, since what covers the window may keep it from ever being painted.
    bool is_coming_up() const;
    /// Puts the window before the others and gives it the keyboard.
    void come_forward();
    /// Whether that was asked for and the keyboard is not there yet. That lasts for a moment at
    /// most, since the window manager may refuse.
    bool is_coming_forward() const;
    /// Whether the window is still on the screen although its form is hidden. The user's actions
    /// don't reach such a window.
    bool is_leaving() const;
    /// Has the pictures painted again whose pixels have changed.
    void show_edited_pictures();

    /// An element of the window, or of another, is about to go.
    void forget(const Element& element);
    /// The form is about to go; nothing of it is touched any more.
    void release();

    /// Gives the keyboard to a control, now or when the window comes up.
    void set_focus(const Control& control) { natives_.set_focus(control); }
    /// Shows a text at a native control, in the place of the one before, and tells of it.
    void show_hint(const Control& control, const QString& text);
    /// Shows a menu at the pointer, or in the middle of the window while the pointer is elsewhere.
    void pop_up(const PopupMenu& menu, const MenuItem* default_entry);

    /// The native widget of a control; nothing for a control that is drawn.
    QWidget* widget_of(const Control& control) const { return natives_.widget_of(control); }
    /// The form's controls, front to back; none once it is gone.
    std::span<Control* const> controls() const;
    DrawnControls& drawn() { return drawn_; }
    /// The menu that was shown last; for tests.
    QMenu* popup_menu() const { return menu_ ? &**menu_ : nullptr; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void come_up();
    void show_now();
    void watch_screens();
    void watch_screen();
    void tell_of_screen();
    void tell_that_it_is_seen();
    void synchronise_control(Control& control);
    /// Scales the pictures ahead of the first paint event, and has the rest of the window seen at
    /// once.
    void prepare_look();
    void apply_pointer();
    /// Has a region painted again a moment later, behind the ticks that follow a change. Where a
    /// picture is large, handlers take long, its scaling and the painting too: what the system asks
    /// meanwhile comes between them.
    void update_soon(const QRegion& region);
    void prepare_update();
    void show_tool_tip(const QPoint& place, const QPointF& point);
    /// Hands the form the keys that it waits for, as far as the widget at the keyboard has no use
    /// of its own for them.
    void bind_keys();
    void bind_key(const QKeySequence& key, std::function<void()> act);
    void give(const GivenAddress& given);

    /// Nothing once the form is gone.
    Form* form_;
    Windows& windows_;
    DrawnControls drawn_;
    MouseRouter mouse_;
    WindowFrame frame_;
    NativeChildren natives_;
    std::optional<TiedWidget<QMenu>> menu_;
    QMetaObject::Connection screen_watch_;
    QPointer<Hint> hint_;
    /// What a drag over the window holds: to ask for it once more takes another program's time.
    std::optional<GivenAddress> dragged_in_;
    /// Whether the form was visible when the window took over what it says.
    bool is_live_ = false;
    /// Runs from the moment when the window is to be shown until it is painted.
    QTimer coming_up_;
    /// Runs a moment before the window is shown: the ticks come first that follow what a handler
    /// has done, so that it shows no picture sharp that is to be blurred.
    QTimer showing_;
    FirstLook first_look_;
    /// Whether the window is painted for its first look, and not on the screen.
    bool is_previewed_ = false;
    /// Runs from the moment when the window is to have the keyboard until it has it.
    QTimer coming_forward_;
    QTimer update_;
    /// Runs from the scaling of what is to be painted until the painting.
    QTimer prepared_;
    QRegion to_update_;
};

} // namespace lookfar::desktop
