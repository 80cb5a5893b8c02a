#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lookfar::fuzz {

/// The lines of a list file: each ends at CR or CR LF, the last one perhaps at the end.
std::vector<std::string> lines_of(std::string_view content);

/// A list file of these lines.
std::string list_of(const std::vector<std::string>& lines);

/// The lines at the places of titles that have a line for a URL behind them.
std::vector<std::string> titles_of(const std::vector<std::string>& lines);
/// Whether the last line is at the place of a title, with no line for a URL behind it.
bool ends_at_title(const std::vector<std::string>& lines);

} // namespace lookfar::fuzz
