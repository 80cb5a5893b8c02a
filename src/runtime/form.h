#pragma once

#include "runtime/controls/control.h"
#include "runtime/controls/popup_menu.h"
#include "runtime/element.h"
#include "runtime/event.h"
#include "runtime/look.h"
#include "runtime/property.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace lookfar {

class Timer;

/// The design values of a window. Its size is that of the client area: the frame around it is
/// the window manager's and is not counted.
struct FormDesign {
    std::string Caption = {};
    Size Client = {};
    FormBorder Border = FormBorder::fixed_single;
    bool ControlBox = true;
    bool MinButton = true;
    bool ShowInTaskbar = true;
    bool CentredOnScreen = false;
    bool HasIcon = true;
    /// The main window's screen is the screen: the one that `Runtime::Screen` measures and on which
    /// the other windows come up.
    bool IsMainWindow = false;
    Colour BackColor = colour::button_face;
    lookfar::MousePointer MousePointer = MousePointer::standard;
    /// What assistive technology calls a window that has no caption.
    std::string AccessibleName = {};
};

/// A window: the base of the window classes, which declare their controls as members, front to
/// back, and wire their handlers in their constructors. It is made and loaded through a
/// `Window`, hidden at first.
class Form : public Element, public MouseEvents {
  public:
    Form(Runtime& host, const FormDesign& design);
    ~Form() override;

    /// Makes the window visible, or brings it back where it is minimised, and puts it before the
    /// others; returns at once.
    void Show();
    void Hide();
    /// Shows a menu at the pointer, or in the middle of the window while the pointer is elsewhere.
    /// The default entry, if there is one, is set off.
    void PopupMenu(lookfar::PopupMenu& menu, const MenuItem* default_entry = nullptr);

    /// The user or the window manager asks for the window to close: raises `QueryUnload`, and
    /// unloads the window unless a handler cancels that.
    void request_close();

    /// The user or the window manager has given the window a state.
    void apply_state(lookfar::WindowState state);

    /// The controls front to back.
    std::span<Control* const> controls() const { return controls_; }

    Property<std::string> Caption;
    Property<bool> Visible;
    /// The position counts from the corner of the window's screen.
    Property<float> Left;
    Property<float> Top;
    /// A change of size or of window state raises `Resize` inside the write; so does the first
    /// display. Minimising a window changes no size, and neither does bringing it back; where the
    /// user does that, nothing is raised.
    Property<float> Width;
    Property<float> Height;
    Property<lookfar::WindowState> WindowState;
    Property<lookfar::MousePointer> MousePointer;

    Event<> Initialize;
    Event<> Load;
    /// The window has come up and is painted for the first time since.
    Event<> Seen;
    /// The window is on another screen than before, or its screen has another size.
    Event<> ScreenChange;
    Event<> Resize;
    /// With a flag that a handler sets to keep the window, and the reason of the request.
    Event<short&, short> QueryUnload;
    Event<> Unload;
    /// The user asks for the window's menu by the keyboard.
    Event<> MenuKey;
    /// The user asks by the keyboard for a copy of what the window shows.
    Event<> CopyKey;
    /// The user asks by the keyboard for what the window shows to be fetched anew.
    Event<> ReloadKey;
    /// The user pastes an address of the Web into the window, or drops it there: the address, and
    /// its title where it came with one.
    Event<const std::string&, const std::string&> AddressGiven;

    const FormDesign Design;

  private:
    friend class Control;
    friend class Timer;
    template <class Kind>
    friend class Window;

    void add(Control& control) { controls_.push_back(&control); }
    void remove(Control& control);
    void raise_first_resize();
    /// The timers run from the loading of the window to its unloading. They start back to front, as
    /// the window is built up on the screen, so that on ties the one further back ticks first.
    void start_timers();
    void stop_timers();

    std::vector<Control*> controls_;
    std::vector<Timer*> timers_;
    bool runs_timers_ = false;
    bool was_displayed_ = false;
    /// Makes the `Window` that holds this instance let it go.
    std::function<void()> release_;
};

} // namespace lookfar
