#pragma once

#include "desktop/drawn/drawn_controls.h"
#include "desktop/drawn/mouse_router.h"
#include "desktop/native/native_control.h"

#include <QIcon>
#include <QImage>
#include <QMenu>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <optional>
#include <unordered_map>
#include <vector>

class QPushButton;

namespace lookfar {
class Control;
class Element;
class Form;
class MenuItem;
class PopupMenu;
} // namespace lookfar

namespace lookfar::desktop {

class Windows;

/// One window on the screen: its frame, its native widgets, and the controls that it draws
/// itself. While it is hidden it follows nothing; it takes everything over when it is shown.
class WindowView : public QWidget {
  public:
    WindowView(Form& form, Windows& windows, const QIcon& icon);

    /// Takes over what the window itself says.
    void synchronise_window();
    void synchronise(Control& control);
    void take_edited_pictures();

    /// An element of the window, or of another, is about to go.
    void forget(const Element& element);
    /// The form is about to go; nothing of it is touched any more.
    void release();

    /// Gives the keyboard to a control, now or when the window comes up.
    void set_focus(const Control& control);
    void pop_up(const PopupMenu& menu, const MenuItem* default_entry);

    /// The native widget of a control; nothing for a control that is drawn.
    QWidget* widget_of(const Control& control) const;
    /// The labels and pictures that assistive technology reads, front to back, hidden ones too;
    /// none once the window is gone.
    std::vector<DrawnControl> readable_controls() const;
    /// One of them; nothing for a control that is none of them, or gone.
    std::optional<DrawnControl> readable_control(const Control& control) const;
    DrawnControls& drawn() { return drawn_; }
    /// The menu that was shown last; for tests.
    QMenu* popup_menu() const { return menu_ ? &**menu_ : nullptr; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void make_native_controls();
    void set_tab_order();
    void synchronise_controls();
    void synchronise_control(Control& control);
    void take_pointer();
    void take_focus();
    void take_size();
    void take_position();
    void centre_on_screen();
    void take_state();
    void show_tool_tip(const QPoint& place, const QPointF& point);
    void press_button_by_enter();
    QPushButton* default_button() const;

    Form* form_;
    Windows& windows_;
    DrawnControls drawn_;
    MouseRouter mouse_;
    std::unordered_map<const Element*, NativeControl> natives_;
    std::optional<TiedWidget<QMenu>> menu_;
    /// What the window was drawn into last; without an alpha channel, so that shapes can merge.
    QImage canvas_;
    QPointer<QWidget> focus_at_show_;
    /// The window's place as both sides know it.
    std::optional<QPoint> position_;
    bool was_centred_ = false;
};

} // namespace lookfar::desktop
