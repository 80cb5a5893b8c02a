#pragma once

#include <QString>

#include <unordered_map>

namespace lookfar {
class Control;
class Element;
} // namespace lookfar

namespace lookfar::desktop {

class WindowView;

/// Tells assistive technology what has changed among the labels and pictures that a window draws
/// itself, and announces the texts of those that ask for it.
class ChangeReporter {
  public:
    explicit ChangeReporter(WindowView& view) : view_(view) {}

    /// Tells how the control is shown now, if it was shown differently before.
    void synchronise(Control& control);
    /// The control is about to go; nothing happens for an element that is none.
    void forget(const Element& element) { told_.erase(&element); }

  private:
    WindowView& view_;
    /// What each control is called; empty for one that is hidden.
    std::unordered_map<const Element*, QString> told_;
};

} // namespace lookfar::desktop
