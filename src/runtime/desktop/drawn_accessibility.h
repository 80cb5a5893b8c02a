#pragma once

namespace lookfar::desktop {

/// While it lives, assistive technology finds the labels and pictures that windows draw
/// themselves, as children of the window beside its native widgets. Hidden ones and those without
/// a name are left out.
class DrawnAccessibility {
  public:
    DrawnAccessibility();
    DrawnAccessibility(const DrawnAccessibility&) = delete;
    DrawnAccessibility& operator=(const DrawnAccessibility&) = delete;
    ~DrawnAccessibility();
};

} // namespace lookfar::desktop
