#pragma once

#include "desktop/window/window_observer.h"

#include <QString>

#include <unordered_map>

namespace lookfar::desktop {

class StatusText;

/// Tells assistive technology of changes in the labels and pictures that windows draw themselves.
/// Announces new texts of labels that ask for it, and of the status bar, and hints.
class ChangeReporter : public WindowObserver {
  public:
    void control_shown(WindowView& window, Control& control) override;
    void hint_shown(Hint& hint) override;
    void element_forgotten(const Element& element) override { reported_.erase(&element); }

  private:
    void report_drawn_control(WindowView& window, Control& control);
    void report_status_text(StatusText& widget, const Control& control);

    /// The name that was last reported of each control; empty for one that was hidden.
    std::unordered_map<const Element*, QString> reported_;
};

} // namespace lookfar::desktop
