#pragma once

#include "desktop/native/tied_widget.h"

#include <QMenu>

namespace lookfar {
class MenuItem;
class PopupMenu;
} // namespace lookfar

namespace lookfar::desktop {

class UserActions;

/// The native menu; the default entry, if any, is set off.
TiedWidget<QMenu> make_popup_menu(const PopupMenu& menu, const MenuItem* default_entry,
                                  UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
