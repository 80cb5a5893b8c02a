#pragma once

#include "catalogue/list_change.h"

#include <functional>
#include <optional>
#include <string>

namespace lookfar::catalogue {

/// One camera of the list.
struct Camera {
    std::string title;
    std::string url;
};

/// Leaves every record with this title out of the list; blank lines between records go too. A title
/// on which the list ends counts as a record without a URL.
/// Throws a `Failure` when a file step fails; the list then stays as it was.
void remove_cameras(NumberedFiles& files, const std::string& title);

/// What an editor saves.
struct Save {
    Camera camera;
    /// The title whose records the camera replaces, in place. Without one the camera is added.
    std::optional<std::string> replaced_title;
    /// Asked at most once, when a camera is added under a title that exists: may it be overwritten?
    std::function<bool()> may_overwrite;
    /// Called whenever the lines of the old list are copied, before the copy replaces it.
    std::function<void()> lines_are_copied;
};

/// Puts a camera into the list: in the place of the records that it replaces, or of the first line
/// with its title, or else at the end; a title on which the list ends gets a blank URL before that.
/// Every other line is kept as it stands. A step that fails is skipped and the next one runs, but a
/// copy that lacks anything of the old list or of the new record never replaces the list: the first
/// such failure is thrown then, as are those of `change_list`, and the list stays as it was. It is
/// refused where the camera may not overwrite another one.
ChangeOutcome save_camera(NumberedFiles& files, Save save);

} // namespace lookfar::catalogue
