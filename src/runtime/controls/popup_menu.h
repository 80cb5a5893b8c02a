#pragma once

#include "runtime/element.h"
#include "runtime/event.h"

#include <string>
#include <vector>

namespace lookfar {

class Form;

/// One entry of a popup menu; the caption "-" makes a separator, `&` marks the access key.
class MenuItem : public Element {
  public:
    MenuItem(Form& owner, std::string caption);

    const std::string Caption;
    Event<> Click;
};

/// A menu that is only shown as a popup (`Form::PopupMenu`).
class PopupMenu : public Element {
  public:
    PopupMenu(Form& owner, std::vector<MenuItem*> entries);

    const std::vector<MenuItem*> entries;
};

} // namespace lookfar
