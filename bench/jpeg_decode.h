#pragma once

#include <string>
#include <vector>

namespace lookfar::bench {

/// Milliseconds of processor time that libjpeg-turbo takes to decode one of these JPEG files to
/// three bytes a pixel, into memory that is kept: the median of several rounds over all of them,
/// and the measure of everything else. Throws std::runtime_error where one can't be decoded.
double decode_milliseconds(const std::vector<std::string>& files);

} // namespace lookfar::bench
