#pragma once

#include "desktop/input/user_actions.h"
#include "desktop/native/tied_widget.h"

#include <QIcon>
#include <QObject>

#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class QScreen;

namespace lookfar {
class Control;
class Element;
class Form;
class MenuItem;
class PopupMenu;
} // namespace lookfar

namespace lookfar::desktop {

class WindowObserver;
class WindowView;

/// The windows on the screen, kept in step with the model.
///
/// A changed element is only noted. The synchronisation that follows runs from the message loop,
/// before a window paints, before the user's next action and after it.
class Windows {
  public:
    /// The icon is made once the first window is painted, since that takes long.
    Windows(std::function<QIcon()> make_icon, WindowObserver& observer);
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;
    ~Windows();

    void changed(Element& element);
    /// Lets the element go; for a window, its widgets too.
    void forget(Element& element);

    /// Shows all that has changed. A window that comes up or forward does so before another one
    /// goes: that one stays on the screen until the new one is painted and has the keyboard. Else
    /// the window manager would choose who gets the keyboard.
    void synchronise();
    /// The same, from the message loop.
    void synchronise_later();

    /// The way from widgets to handlers; suspended while the widgets take over what has changed.
    UserActions& actions() { return actions_; }
    WindowObserver& observer() { return observer_; }

    void bring_forward(Form& form);
    void set_focus(Control& control);
    void show_hint(Control& control, const std::string& text);
    void announce(Control& control, const std::string& text);
    void pop_up(Form& form, PopupMenu& menu, const MenuItem* default_entry);

    /// The screen that a window lies over whole; where none does, the one on which the main window
    /// stands, or stood when it was hidden; the primary one as long as there is no main window.
    QScreen& screen() const;

    /// The window's view; nothing for a window that was never shown.
    WindowView* view_of(const Form& form) const;

  private:
    void synchronise(Element& element);
    void synchronise_window(Form& form);
    void take_changes_over();
    bool is_any_on_its_way() const;
    void hide_leaving();
    void take_icon();
    TiedWidget<WindowView> make_view(Form& form);

    /// Nothing once the icon is made.
    std::function<QIcon()> make_icon_;
    QIcon icon_;
    WindowObserver& observer_;
    UserActions actions_{[this] { synchronise(); }};
    std::unordered_map<const Element*, TiedWidget<WindowView>> views_;
    std::unordered_set<Element*> changed_;
    /// The same in the order of their first change.
    std::vector<Element*> changed_in_order_;
    bool is_scheduled_ = false;
    /// Receives the scheduled synchronisation; the last member, so that it goes first.
    QObject loop_;
};

} // namespace lookfar::desktop
