#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace lookfar::desktop {

/// A text as the user sees it.
QString shown_text(std::string_view bytes);

/// What the user typed, as UTF-8.
std::string typed_bytes(const QString& text);

} // namespace lookfar::desktop
