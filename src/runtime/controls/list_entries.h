#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lookfar {

/// The entries of a list control, at most 32,767, sorted without regard to case or in
/// the order in which they were added. Entries that sort alike keep that order too.
class ListEntries {
  public:
    explicit ListEntries(bool sorted) : sorted_(sorted) {}

    /// Gives back the position that the entry took. Throws a `Failure` when the list is full, or
    /// the memory.
    short add(const std::string& text);
    void clear();

    short count() const { return static_cast<short>(order_.size()); }
    /// The text at a position from 0 to count() - 1.
    const std::string& text(short position) const;
    /// The first position with exactly this text, -1 for none.
    short find(const std::string& text) const;

  private:
    struct Entry {
        std::string text;
        std::u32string sort_key;
    };

    short insert(Entry entry);
    std::vector<std::uint16_t>::iterator place_of(const Entry& entry);

    bool sorted_;
    std::vector<Entry> entries_;
    /// Indices into `entries_`; moving these two bytes is what makes sorted adding quick.
    std::vector<std::uint16_t> order_;
};

} // namespace lookfar
