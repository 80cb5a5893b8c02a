#pragma once

namespace lookfar {
class ComboBox;
class ListBox;
class NumberedFiles;
} // namespace lookfar

namespace lookfar::catalogue {

/// The three lists that show the cameras. They hold the same titles in the same order, so that
/// an index means one camera in all three.
struct SelectorLists {
    /// The master, which sorts itself.
    ListBox& titles;
    ComboBox& main_selector;
    ComboBox& fullscreen_selector;
};

/// Appends the master's titles to both selectors, index by index. Throws a `Failure` where the
/// memory does not suffice; the three lists are empty then.
void copy_titles(SelectorLists lists);

/// Empties the three lists and fills them from the list file. A file that ends early, or a list
/// that is full, leaves the titles read so far. Throws a `Failure` when the file can't be opened
/// or has no line, and as `copy_titles` does; the lists are empty then.
void refill(NumberedFiles& files, SelectorLists lists);

} // namespace lookfar::catalogue
