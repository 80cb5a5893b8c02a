#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace lookfar::desktop {

/// A text as the user sees it; one that is longer than any window has room for is cut, and ends
/// in an ellipsis.
QString shown_text(std::string_view bytes);

/// The same without a limit, for editing.
QString whole_text(std::string_view bytes);

/// The text with another one in the place of each line break; CR LF is one.
QString on_one_line(QString text, const QString& in_place_of_breaks);

/// What assistive technology calls a control: the name that it was given for that, or else the text
/// that its user sees.
const std::string& name_or(const std::string& accessible_name, const std::string& seen_text);

} // namespace lookfar::desktop
