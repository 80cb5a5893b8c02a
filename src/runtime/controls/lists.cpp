#include "runtime/controls/lists.h"

#include "runtime/failure.h"

namespace lookfar {

namespace {
constexpr short nothing_selected = -1;
}

ListControl::ListControl(Form& owner, const Bounds& bounds, bool visible, bool sorted)
    : BoxControl(owner, bounds, visible),
      ListIndex(*this, nothing_selected,
                {.refuse = [this](const short& index) { refuse_index(index); },
                 .changed = [this] { Click.raise(); }}),
      Text([this] { return List(ListIndex); }, [this](const std::string& text) { select(text); }),
      entries_(sorted) {}

void ListControl::AddItem(const std::string& text) {
    const short position = entries_.add(text);
    ++entries_revision_;
    if (position <= ListIndex)
        ListIndex.store(static_cast<short>(ListIndex + 1));
    else
        changed();
}

void ListControl::Clear() {
    entries_.clear();
    ++entries_revision_;
    ListIndex.store(nothing_selected);
}

std::string ListControl::List(short index) const {
    return index >= 0 && index < ListCount() ? entries_.text(index) : std::string();
}

short ListControl::ListCount() const {
    return entries_.count();
}

void ListControl::refuse_index(short index) const {
    if (index < nothing_selected || index >= ListCount())
        throw Failure(FailureKind::invalid_property_value,
                      "The list has no entry " + std::to_string(index) + ".");
}

void ListControl::select(const std::string& text) {
    if (ListIndex != nothing_selected && List(ListIndex) == text)
        return;
    const short index = entries_.find(text);
    if (index == nothing_selected)
        throw Failure(FailureKind::no_such_entry, "The list has no entry '" + text + "'.");
    ListIndex = index;
}

ComboBox::ComboBox(Form& owner, const ComboBoxDesign& design)
    : ControlOf(owner, design), BackColor(*this, design.BackColor) {}

} // namespace lookfar
