#pragma once

#include <QImageIOHandler>

#include <cstdint>
#include <span>

namespace lookfar {

/// How the EXIF data of a picture, of whatever format, say that it has to be laid. Not at all where
/// they say nothing or are none.
QImageIOHandler::Transformations orientation_in_exif(std::span<const std::uint8_t> exif);

} // namespace lookfar
