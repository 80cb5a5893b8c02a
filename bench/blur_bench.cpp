#include "pipeline/blur.h"

#include "processor_time.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <vector>

namespace lookfar::bench {

namespace {

constexpr int height = 1080;
constexpr int stride = 1920 * 3;

using Buffer = std::vector<std::uint8_t>;

Buffer noise() {
    Buffer bytes(static_cast<std::size_t>(height) * stride);
    std::uint32_t state = 1;
    for (auto& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<std::uint8_t>(state >> 24U);
    }
    return bytes;
}

/// The filter as a plain loop: three chains, one a colour, each waiting for its own last value.
void blur_by_plain_chains(Buffer& bytes) {
    const std::size_t first = stride + 4;
    const std::size_t count = static_cast<std::size_t>(height - 3) * (stride + 1);
    std::array<int, 3> last{bytes[first - 3], bytes[first - 2], bytes[first - 1]};
    for (std::size_t target = first; target < first + count; target += 3)
        for (std::size_t chain = 0; chain < 3; ++chain) {
            const std::size_t index = target + chain;
            last[chain] =
                (bytes[index - stride] + last[chain] + bytes[index + 3] + bytes[index + stride]) /
                4;
            bytes[index] = static_cast<std::uint8_t>(last[chain]);
        }
}

void measure(benchmark::State& state) {
    Buffer bytes = noise();
    Buffer copy(bytes.size());
    const double copying = least_processor_seconds([&] {
        std::memcpy(copy.data(), bytes.data(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    });
    const double chains = least_processor_seconds([&] { blur_by_plain_chains(copy); });
    double blurring = 0;
    for (auto unused : state) {
        (void)unused;
        blurring = least_processor_seconds([&] { blur(bytes, bytes, height, stride); });
    }
    const double gigabytes = static_cast<double>(bytes.size()) * 1e-9;
    state.counters["blur_GB_per_s"] = gigabytes / blurring;
    state.counters["memcpy_GB_per_s"] = gigabytes / copying;
    state.counters["blur_in_memcpys"] = blurring / copying;
    state.counters["blur_in_plain_chains"] = blurring / chains;
}

BENCHMARK(measure)->Name("blur_1920x1080")->Iterations(1);

} // namespace

} // namespace lookfar::bench
