#include "runtime/controls/list_entries.h"

#include "runtime/failure.h"
#include "runtime/text.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace lookfar {

short ListEntries::add(const std::string& text) {
    if (count() == std::numeric_limits<short>::max())
        throw Failure(FailureKind::list_is_full, "The list is full: it holds 32767 entries.");
    try {
        return insert({.text = text, .sort_key = sorted_ ? caseless_key(text) : std::u32string()});
    } catch (const std::bad_alloc&) {
        throw Failure(FailureKind::too_large, "There is not enough memory for the list.");
    }
}

short ListEntries::insert(Entry entry) {
    const auto place = place_of(entry);
    const auto position = static_cast<short>(place - order_.begin());
    const auto index = static_cast<std::uint16_t>(entries_.size());
    entries_.push_back(std::move(entry));
    order_.insert(place, index);
    return position;
}

void ListEntries::clear() {
    entries_.clear();
    order_.clear();
}

const std::string& ListEntries::text(short position) const {
    return entries_[order_[static_cast<std::size_t>(position)]].text;
}

short ListEntries::find(const std::string& text) const {
    const auto found = std::ranges::find_if(
        order_, [&](std::uint16_t index) { return entries_[index].text == text; });
    return found == order_.end() ? short{-1} : static_cast<short>(found - order_.begin());
}

std::vector<std::uint16_t>::iterator ListEntries::place_of(const Entry& entry) {
    if (!sorted_)
        return order_.end();
    return std::ranges::upper_bound(
        order_, entry.sort_key, {},
        [this](std::uint16_t index) -> const std::u32string& { return entries_[index].sort_key; });
}

} // namespace lookfar
