#pragma once

#include <string>
#include <string_view>

namespace lookfar {

/// The media type at the front of a Content-Type's value, in small letters; empty where nothing
/// stands there that may be one.
std::string media_type_of(std::string_view content_type);

/// The value of a parameter of a Content-Type's value, without its quotes; empty where there is
/// none. The name is in small letters and fits whatever the case.
std::string parameter_of(std::string_view content_type, std::string_view name);

} // namespace lookfar
