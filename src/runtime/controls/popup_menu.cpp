#include "runtime/controls/popup_menu.h"

#include "runtime/form.h"

#include <utility>

namespace lookfar {

MenuItem::MenuItem(Form& owner, std::string caption)
    : Element(owner.runtime), Caption(std::move(caption)) {}

PopupMenu::PopupMenu(Form& owner, std::vector<MenuItem*> items)
    : Element(owner.runtime), entries(std::move(items)) {}

} // namespace lookfar
