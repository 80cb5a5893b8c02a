#pragma once

namespace lookfar::desktop {

/// While it lives, assistive technology reads the windows as they are meant: with the labels and
/// pictures that they draw themselves, and with the roles and values of the widgets that are ours.
class Accessibility {
  public:
    Accessibility();
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;
    ~Accessibility();
};

} // namespace lookfar::desktop
