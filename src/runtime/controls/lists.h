#pragma once

#include "runtime/controls/control.h"
#include "runtime/controls/list_entries.h"

#include <cstdint>
#include <string>

namespace lookfar {

/// What list boxes and drop-down lists have in common: entries, of which one or none is
/// selected.
class ListControl : public BoxControl {
  public:
    template <class Values>
    ListControl(Form& owner, const Values& design)
        : ListControl(owner, design.At, design.Visible, design.Sorted) {}

    /// Appends an entry, or puts it in its place where the list is sorted; the selected entry
    /// stays selected. Refused beyond 32,767 entries.
    void AddItem(const std::string& text);
    /// Takes all entries out; nothing is selected then. Raises nothing.
    void Clear();
    /// The text of an entry; empty for an index without one, -1 included.
    std::string List(short index) const;
    short ListCount() const;

    /// Rises whenever the entries change.
    std::uint64_t entries_revision() const { return entries_revision_; }

    /// The selected entry, -1 for none. Indices without an entry are refused.
    Property<short> ListIndex;
    /// The selected entry's text, empty for none. A write selects the first entry with exactly
    /// that text, and is refused where there is none.
    DerivedProperty<std::string> Text;

    /// The user or a handler has changed the selection, or the user has clicked in a list box on
    /// the entry that was selected already.
    Event<> Click;

  private:
    ListControl(Form& owner, const Bounds& bounds, bool visible, bool sorted);

    void refuse_index(short index) const;
    void select(const std::string& text);

    ListEntries entries_;
    std::uint64_t entries_revision_ = 0;
};

/// The design values of a list box.
struct ListBoxDesign {
    Bounds At = {};
    bool Visible = true;
    bool Sorted = false;
    int TabIndex = 0;
    std::string AccessibleName = {};
};

class ListBox : public ControlOf<ListBox, ListBoxDesign, ListControl> {
  public:
    ListBox(Form& owner, const ListBoxDesign& design) : ControlOf(owner, design) {}

    /// The user presses the Delete key.
    Event<> DeleteKey;
};

/// The design values of a drop-down list.
struct ComboBoxDesign {
    Bounds At = {};
    bool Visible = true;
    bool Sorted = false;
    Colour BackColor = colour::window_background;
    Colour ForeColor = colour::window_text;
    lookfar::Font Font = {};
    /// Whether the box and its list are painted flat in the colours that they have, whatever the
    /// look of the desktop, with a thin rim that sets their texts off.
    bool IsFlat = false;
    int TabIndex = 0;
    std::string AccessibleName = {};
};

/// A drop-down list: its text can be picked, not typed.
class ComboBox : public ControlOf<ComboBox, ComboBoxDesign, ListControl> {
  public:
    ComboBox(Form& owner, const ComboBoxDesign& design);

    Property<Colour> BackColor;
};

} // namespace lookfar
