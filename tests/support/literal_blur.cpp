#include "support/literal_blur.h"

#include <cstddef>

namespace lookfar::testing {

void blur_literally(std::vector<std::uint8_t>& bytes, int height, int stride) {
    const long size = static_cast<long>(bytes.size());
    const auto read = [&](long index) {
        return index >= 0 && index < size ? int{bytes[static_cast<std::size_t>(index)]} : 0;
    };
    long position = stride + 3;
    for (int pass = 1; pass <= height - 3; ++pass) {
        for (int step = 0; step <= stride; ++step) {
            ++position;
            int sum = read(position - stride);
            sum += read(position - 3);
            sum += read(position + 3);
            sum += read(position + stride);
            if (position < size)
                bytes[static_cast<std::size_t>(position)] = static_cast<std::uint8_t>(sum / 4);
        }
    }
}

} // namespace lookfar::testing
