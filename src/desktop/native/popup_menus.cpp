#include "desktop/native/popup_menus.h"

#include "desktop/input/user_actions.h"
#include "desktop/style/texts.h"
#include "runtime/controls/popup_menu.h"

namespace lookfar::desktop {

std::unique_ptr<QMenu, DeleteLater> make_popup_menu(const PopupMenu& menu,
                                                    const MenuItem* default_entry,
                                                    UserActions& actions, QWidget& window) {
    std::unique_ptr<QMenu, DeleteLater> native(std::make_unique<QMenu>(&window).release());
    for (MenuItem* const item : menu.entries) {
        if (item->Caption == "-") {
            native->addSeparator();
            continue;
        }
        QAction* const action =
            native->addAction(shown_text(item->Caption), native.get(), [item, &actions] {
                actions.deliver(*item, [item] { item->Click.raise(); });
            });
        if (item == default_entry)
            native->setDefaultAction(action);
    }
    return native;
}

} // namespace lookfar::desktop
