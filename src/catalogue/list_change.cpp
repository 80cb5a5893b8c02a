#include "catalogue/list_change.h"

#include "catalogue/list_file.h"
#include "runtime/failure.h"

#include <optional>

namespace lookfar::catalogue {

namespace {

/// Gives false where the list or the copy was changed since the copy was begun.
bool replaces_list(NumberedFiles& files, const std::string& copy_path,
                   const std::optional<FileState>& list_before) {
    if (files.disk().state(list_name) != list_before)
        return false;
    try {
        files.Replace(copy_path, list_name);
        return true;
    } catch (const Failure& failure) {
        if (failure.Kind == FailureKind::file_in_use)
            return false;
        throw;
    }
}

} // namespace

ListLock::ListLock(Disk& disk) : disk_(disk) {
    lock();
}

void ListLock::lock() {
    try {
        lock_ = disk_.lock_folder_of(list_name);
    } catch (const Failure& failure) {
        // Any other one means that there are no locks.
        if (failure.Kind == FailureKind::file_in_use)
            throw;
    }
}

ChangeOutcome change_list(NumberedFiles& files, const MakeCopy& make_copy) {
    constexpr int max_copies = 10;
    for (int copies = 0; copies < max_copies; ++copies) {
        const std::string copy_path = files.disk().folder_of(list_name) + copy_name;
        const auto before = files.disk().state(list_name);
        const ChangeOutcome outcome = make_copy(copy_path);
        if (outcome == ChangeOutcome::refused || replaces_list(files, copy_path, before))
            return outcome;
    }
    throw file_in_use(list_name);
}

} // namespace lookfar::catalogue
