#pragma once

#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace lookfar::testing {

/// What a list file comes to, said plainly and apart from the passes over it.
using Lines = std::vector<std::string>;

/// A few lines, with any ends, of which many are blank or alike.
std::string random_list(std::mt19937& random);

/// The lines of a list file: each ends at CR or CR LF, the last one perhaps at the end.
Lines lines_of(std::string_view content);
/// A list file of these lines.
std::string list_of(const Lines& lines);

/// The lines at the places of titles that have a line for a URL behind them.
Lines titles_of(const Lines& lines);
/// Whether the last line is at the place of a title, with no line for a URL behind it.
bool ends_at_title(const Lines& lines);

} // namespace lookfar::testing
