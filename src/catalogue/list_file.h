#pragma once

#include "runtime/files/files.h"

#include <functional>
#include <optional>
#include <string>

namespace lookfar::catalogue {

/// The camera list, in the current directory: a camera is two lines, its title and its URL.
inline constexpr const char* list_name = "Cams.inf";
/// The copy that a change makes beside it (`change_list`).
inline constexpr const char* copy_name = "C1.DAT";

/// Gives the titles of a well-formed list in the order of the file, skipping blank lines where a
/// title is expected. A list that is missing or has no line at all is written anew with the one
/// default camera first; no other file is touched. Whatever else ends the reading early, the titles
/// given so far are the list, and the file is left alone.
///
/// Throws a `Failure` when the list can't be opened or read before it has given a title, when it
/// ends on its first title, as one without carriage returns does, and when the default camera can't
/// be written.
void read_at_start(NumberedFiles& files, const std::function<void(const std::string&)>& add_title);

/// Gives every line of the list, titles, URLs and blank lines alike. The step may read further
/// lines under `file_number::list`. The first read happens in any case, so a list without a line
/// is a failure.
///
/// Throws a `Failure` when the list can't be opened or read; it is closed in every case.
void scan_lines(NumberedFiles& files, const std::function<void(const std::string&)>& step);

/// What is wrong with a list that ends on a title, which is no camera: its lines end in LF alone,
/// or the title has no address. Nothing for any other list. Throws as `scan_lines` does.
std::optional<std::string> complaint_about_end(NumberedFiles& files);

/// The line behind the first line that equals the title; nothing where there is none. Throws as
/// `scan_lines` does.
std::optional<std::string> find_url(NumberedFiles& files, const std::string& title);

} // namespace lookfar::catalogue
