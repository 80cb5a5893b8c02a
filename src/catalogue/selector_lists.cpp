#include "catalogue/selector_lists.h"

#include "catalogue/list_file.h"
#include "runtime/controls/lists.h"
#include "runtime/failure.h"

#include <string>

namespace lookfar::catalogue {

namespace {

void read_titles(NumberedFiles& files, ListBox& titles) {
    files.OpenForInput(list_number, list_name);
    const FileCloser closer(files, list_number);
    do {
        const std::string title = files.LineInput(list_number);
        if (!title.empty()) {
            titles.AddItem(title);
            files.LineInput(list_number);
        }
    } while (!files.EndOfFile(list_number));
}

} // namespace

void copy_titles(SelectorLists lists) {
    for (short index = 0; index < lists.titles.ListCount(); ++index) {
        lists.main_selector.AddItem(lists.titles.List(index));
        lists.fullscreen_selector.AddItem(lists.titles.List(index));
    }
}

void refill(NumberedFiles& files, SelectorLists lists) {
    lists.titles.Clear();
    lists.main_selector.Clear();
    lists.fullscreen_selector.Clear();
    try {
        read_titles(files, lists.titles);
    } catch (const Failure&) {
        if (lists.titles.ListCount() == 0)
            throw;
    }
    copy_titles(lists);
}

} // namespace lookfar::catalogue
