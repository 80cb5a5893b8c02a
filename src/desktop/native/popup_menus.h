#pragma once

#include "desktop/native/tied_widget.h"

#include <QMenu>

namespace lookfar {
class MenuItem;
class PopupMenu;
} // namespace lookfar

namespace lookfar::desktop {

class UserActions;

/// Makes the native menu, with the default entry, if there is one, in bold.
TiedWidget<QMenu> make_popup_menu(const PopupMenu& menu, const MenuItem* default_entry,
                                  UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
