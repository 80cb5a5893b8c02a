#pragma once

#include "demo/http.h"

#include <QImage>

namespace lookfar::demo {

enum class PictureFormat { jpeg, gif, png };

/// The picture as the body of an answer, with the content type that fits.
/// Throws std::runtime_error when the picture cannot be encoded.
Answer picture_answer(const QImage& picture, PictureFormat format);

} // namespace lookfar::demo
