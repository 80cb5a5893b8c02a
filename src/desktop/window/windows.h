#pragma once

#include "desktop/input/user_actions.h"
#include "desktop/native/tied_widget.h"
#include "runtime/event.h"
#include "runtime/window_system.h"

#include <QIcon>
#include <QObject>

#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class QScreen;

namespace lookfar::desktop {

class Hint;
class WindowView;

/// The windows on the screen, kept in step with the model.
///
/// A changed element is only noted. The synchronisation that follows runs from the message loop,
/// before a window paints, before the user's next action and after it.
class Windows : public WindowSystem {
  public:
    /// The icon is made once the first window is painted, since that takes long.
    explicit Windows(std::function<QIcon()> make_icon);
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;
    ~Windows() override;

    ScreenMetrics screen_metrics() const override;
    Size text_size(const std::string& text, const Font& font,
                   std::optional<float> wrap_width) const override;
    void changed(Element& element) override;
    /// Lets the element go; for a window, its widgets too.
    void forget(Element& element) override;
    void bring_forward(Form& form) override;
    void set_focus(Control& control) override;
    void show_hint(Control& control, const std::string& text) override;
    void announce(Control& control, const std::string& text) override;
    void pop_up(Form& form, PopupMenu& menu, const MenuItem* default_entry) override;

    /// A window, which is visible or about to be shown, has taken over what the control says.
    Event<WindowView&, Control&> ControlShown;
    /// A hint has come up.
    Event<Hint&> HintShown;
    /// A text that the control shows is to be said aloud.
    Event<WindowView&, const Control&, const QString&> Announced;
    /// The element is about to go.
    Event<const Element&> Forgotten;

    /// Shows all that has changed. A window that comes up or forward does so before another one
    /// goes: that one stays on the screen until the new one is painted and has the keyboard. Else
    /// the window manager would choose who gets the keyboard.
    void synchronise();
    /// The same, from the message loop.
    void synchronise_later();

    /// The way from widgets to handlers; suspended while the widgets take over what has changed.
    UserActions& actions() { return actions_; }

    /// The screen that a window lies over whole; where none does, the one on which the main window
    /// stands, or stood when it was hidden; the primary one as long as there is no main window.
    QScreen& screen() const;

    /// The window's view; nothing for a window that was never shown.
    WindowView* view_of(const Form& form) const;

  private:
    void synchronise(Element& element);
    void synchronise_window(Form& form);
    void apply_changes();
    bool is_any_on_its_way() const;
    void hide_leaving();
    void apply_icon();
    TiedWidget<WindowView> make_view(Form& form);

    /// Nothing once the icon is made.
    std::function<QIcon()> make_icon_;
    QIcon icon_;
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
