#pragma once

namespace lookfar::desktop {

/// While it lives, Qt's failure to start ends the program with status 1, after a line on
/// standard error which says that there is no display. Qt itself would abort.
class DisplayRequired {
  public:
    DisplayRequired();
    DisplayRequired(const DisplayRequired&) = delete;
    DisplayRequired& operator=(const DisplayRequired&) = delete;
    ~DisplayRequired();
};

} // namespace lookfar::desktop
