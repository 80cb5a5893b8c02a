#include "desktop/native/popup_menus.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/style/texts.h"
#include "runtime/controls/popup_menu.h"

namespace lookfar::desktop {

TiedWidget<QMenu> make_popup_menu(const PopupMenu& menu, const MenuItem* default_entry,
                                  UserActions& actions, QWidget& window) {
    TiedWidget<QMenu> native(*owned_by_qt<QMenu>(&window));
    for (MenuItem* const item : menu.entries) {
        if (item->Caption == "-") {
            native->addSeparator();
            continue;
        }
        QAction* const action =
            native->addAction(shown_text(item->Caption), native.tie(), [item, &actions] {
                actions.deliver(*item, [item] { item->Click.raise(); });
            });
        if (item == default_entry)
            native->setDefaultAction(action);
    }
    return native;
}

} // namespace lookfar::desktop
