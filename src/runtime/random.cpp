#include "runtime/random.h"

#include <bit>
#include <cstdint>

namespace lookfar {

void RandomNumbers::Randomize(float seed) {
    generator_.seed(std::bit_cast<std::uint32_t>(seed));
}

float RandomNumbers::Rnd() {
    // The 24 bits of a float's significand: more would round up to 1.
    const auto bits = static_cast<std::uint32_t>(generator_()) >> 8U;
    return static_cast<float>(bits) * 0x1p-24F;
}

} // namespace lookfar
