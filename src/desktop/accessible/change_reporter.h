#pragma once

#include "desktop/window/window_observer.h"

#include <QString>

#include <unordered_map>

namespace lookfar::desktop {

class LabelTabStop;

/// Tells assistive technology of changes in the labels and pictures that windows draw themselves,
/// and of what opens and closes. Announces new texts of labels that ask for it, hints, and what
/// handlers ask for.
class ChangeReporter : public WindowObserver {
  public:
    void control_shown(WindowView& window, Control& control) override;
    void hint_shown(Hint& hint) override;
    void announced(WindowView& window, const Control& control, const QString& text) override;
    void element_forgotten(const Element& element) override {
        reported_.erase(&element);
        open_.erase(&element);
    }

  private:
    void report_drawn_control(WindowView& window, Control& control);
    void report_tab_stop(LabelTabStop& stop, const Control& control);

    /// The name that was last reported of each control; empty for one that was hidden.
    std::unordered_map<const Element*, QString> reported_;
    /// Whether it was open, of each label that opens and closes something.
    std::unordered_map<const Element*, bool> open_;
};

} // namespace lookfar::desktop
