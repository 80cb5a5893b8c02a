#include "catalogue/selector_lists.h"

#include "catalogue/list_file.h"
#include "file_numbers.h"
#include "runtime/controls/lists.h"
#include "runtime/failure.h"

#include <string>

namespace lookfar::catalogue {

namespace {

/// A title counts before its URL is read: one on which the list ends can be seen here, and so be
/// edited or removed. The reading at the start (`catalogue::read_at_start`) passes over it.
void add_titles_as_they_come(NumberedFiles& files, ListBox& titles) {
    files.OpenForInput(file_number::list, list_name);
    const FileCloser closer(files, file_number::list);
    do {
        const std::string title = files.LineInput(file_number::list);
        if (!title.empty()) {
            titles.AddItem(title);
            files.LineInput(file_number::list);
        }
    } while (!files.EndOfFile(file_number::list));
}

void clear(SelectorLists lists) {
    lists.titles.Clear();
    lists.main_selector.Clear();
    lists.fullscreen_selector.Clear();
}

} // namespace

void copy_titles(SelectorLists lists) {
    try {
        for (short index = 0; index < lists.titles.ListCount(); ++index) {
            lists.main_selector.AddItem(lists.titles.List(index));
            lists.fullscreen_selector.AddItem(lists.titles.List(index));
        }
    } catch (const Failure&) {
        clear(lists);
        throw;
    }
}

void refill(NumberedFiles& files, SelectorLists lists) {
    clear(lists);
    try {
        add_titles_as_they_come(files, lists.titles);
    } catch (const Failure&) {
        if (lists.titles.ListCount() == 0)
            throw;
    }
    copy_titles(lists);
}

} // namespace lookfar::catalogue
