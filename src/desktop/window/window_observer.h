#pragma once

class QString;

namespace lookfar {
class Control;
class Element;
} // namespace lookfar

namespace lookfar::desktop {

class Hint;
class WindowView;

/// Is told what becomes of the controls of all windows.
class WindowObserver {
  public:
    virtual ~WindowObserver() = default;

    /// The window, which is visible or about to be shown, has taken over what the control says.
    virtual void control_shown(WindowView& window, Control& control) = 0;
    /// A hint has come up.
    virtual void hint_shown(Hint& hint) = 0;
    /// A text that the control shows is to be said aloud.
    virtual void announced(WindowView& window, const Control& control, const QString& text) = 0;
    /// The element is about to go.
    virtual void element_forgotten(const Element& element) = 0;
};

} // namespace lookfar::desktop
