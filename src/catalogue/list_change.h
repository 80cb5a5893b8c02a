#pragma once

#include "runtime/files/files.h"

#include <functional>
#include <string>

namespace lookfar::catalogue {

/// How the camera list is kept safe.
///
/// Nobody writes into the list. Whoever changes it makes a whole new list beside it, the copy, and
/// that replaces the list. Whoever makes the first list (`read_at_start`) does so under a name that
/// no file bears. Each danger has its guard:
///
/// - The disk fills up, an operation fails, or the machine stops. The copy replaces the list
///   in one step, once all its lines are on the disk (`NumberedFiles::Replace`). So the list is the
///   whole old one or the whole new one at any moment.
/// - Two programs change the list at once. Each of them holds a lock on the list's folder, from
///   before it reads the list until the copy has replaced it, except while it asks the user. A
///   file system without locks does without.
/// - Somebody changes the list without that lock, or under a question. Before the copy replaces the
///   list, that must still be the file that was read, as old and as large as it was then, and the
///   copy must be the one that was made. Else the copy is made again.
/// - The copy's name is planted as a link to another file. The copy is a new file, and what bore
///   its name is never written into.
/// - Others must not see the list. The copy is the user's alone, and so is a list where there was
///   none; else it gets the old list's mode and owner.
/// - The list is a symbolic link. The link stays, and all is done where the file lies: the lock,
///   the copy, and the one step.
/// - The list is too large for the memory. Lines and files over a limit are failures when they are
///   read (`NumberedFiles::LineInput`), and a copy that lacks a line never replaces the list.

/// The lock on the list's folder, held until the end of its life. To get it throws a `Failure` of
/// the kind `file_in_use` where another program holds it for long.
class ListLock {
  public:
    explicit ListLock(Disk& disk);
    void release() { lock_.reset(); }
    void lock();

  private:
    Disk& disk_;
    DiskLock lock_;
};

enum class ChangeOutcome {
    done,
    /// The user refused it. The list is as it was, and the copy stays behind.
    refused,
};

/// Makes the copy at a path: opens the list and the copy under their numbers, and closes both. The
/// copy of a change that is refused need not be whole.
using MakeCopy = std::function<ChangeOutcome(const std::string& copy_path)>;

/// Has a copy made, and made again while the list was changed in the meantime, and has it replace
/// the list. The caller holds the lock. Throws what `make_copy` throws, a `Failure` of the kind
/// `file_in_use` where another program goes on changing the list, and others where the copy can't
/// replace it. The list then is as it was.
ChangeOutcome change_list(NumberedFiles& files, const MakeCopy& make_copy);

} // namespace lookfar::catalogue
