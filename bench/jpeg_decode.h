#pragma once

#include "runtime/transfer.h"

#include <cstdint>
#include <memory>

namespace lookfar::bench {

/// Decodes a JPEG by libjpeg-turbo alone, three bytes a pixel: the measure of everything else.
std::unique_ptr<std::uint8_t[]> decode_jpeg(const Bytes& file);

} // namespace lookfar::bench
