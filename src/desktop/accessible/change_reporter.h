#pragma once

#include <QString>

#include <unordered_map>

namespace lookfar {
class Control;
class Element;
} // namespace lookfar

namespace lookfar::desktop {

class Hint;
class LabelTabStop;
class WindowView;
class Windows;

/// Tells assistive technology of changes in the labels and pictures that windows draw themselves,
/// and of what opens and closes. Announces new texts of labels that ask for it, hints, and what
/// handlers ask for.
class ChangeReporter {
  public:
    explicit ChangeReporter(Windows& windows);
    ChangeReporter(const ChangeReporter&) = delete;
    ChangeReporter& operator=(const ChangeReporter&) = delete;
    ~ChangeReporter() = default;

  private:
    void control_shown(WindowView& window, Control& control);
    void hint_shown(Hint& hint);
    void announced(WindowView& window, const Control& control, const QString& text);
    void element_forgotten(const Element& element);
    void report_drawn_control(WindowView& window, Control& control);
    void report_tab_stop(LabelTabStop& stop, const Control& control);

    /// The name that was last reported of each control; empty for one that was hidden.
    std::unordered_map<const Element*, QString> reported_;
    /// Whether it was open, of each label that opens and closes something.
    std::unordered_map<const Element*, bool> open_;
};

} // namespace lookfar::desktop
