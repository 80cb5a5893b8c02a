#include "processor_time.h"

#include "decoder/memory_file.h"
#include "desktop/drawn/reduced_picture.h"
#include "runtime/pictures/pixel_memory.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <utility>

namespace lookfar::bench {

namespace {

constexpr int width = 3840;
constexpr int height = 2160;
constexpr std::size_t byte_count = std::size_t{width} * height * bytes_per_pixel;

void fill_with_pixels(std::uint8_t* bytes) {
    std::memset(bytes, 0x55, byte_count);
    benchmark::DoNotOptimize(bytes);
    benchmark::ClobberMemory();
}

/// A large picture on its way to the screen, as a multiple of what Qt's smooth scaling takes.
void measure_scaling(benchmark::State& state) {
    const QSize size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Pixels pixels;
    pixels.width = width;
    pixels.height = height;
    pixels.stride = stride_of(width);
    const auto bytes = allocate_pixels(byte_count);
    fill_with_pixels(bytes.get());
    pixels.bytes = bytes;
    const Picture picture(std::move(pixels));
    const double scaling = least_processor_seconds([&] {
        benchmark::DoNotOptimize(desktop::wrapped(picture).scaled(size, Qt::IgnoreAspectRatio,
                                                                  Qt::SmoothTransformation));
    });
    double reducing = 0;
    for (auto unused : state) {
        (void)unused;
        QImage image;
        reducing = least_processor_seconds([&] { desktop::reduce(picture, size, image); });
    }
    state.counters["reduce_ms"] = reducing * 1e3;
    state.counters["reduce_in_scalings"] = reducing / scaling;
}

/// Pixels in a memory file that is used again, as a multiple of the same in a new one each time,
/// and in the program's own memory, of which malloc keeps as much by itself.
void measure_memory(benchmark::State& state) {
    const double anew = least_processor_seconds([] {
        const Descriptor file = decoder::make_memory_file(byte_count);
        fill_with_pixels(decoder::Mapping(file, byte_count, decoder::Access::write).data());
    });
    const double own =
        least_processor_seconds([] { fill_with_pixels(allocate_pixels(byte_count).get()); });
    const Descriptor file = decoder::make_memory_file(byte_count);
    const decoder::Mapping kept(file, byte_count, decoder::Access::write);
    double again = 0;
    for (auto unused : state) {
        (void)unused;
        again = least_processor_seconds([&] { fill_with_pixels(kept.data()); });
    }
    state.counters["kept_ms"] = again * 1e3;
    state.counters["kept_in_files_anew"] = again / anew;
    state.counters["kept_in_own_memory"] = again / own;
}

BENCHMARK(measure_scaling)
    ->Name("scaling_3840x2160_to")
    ->Args({1920, 1080})
    ->Args({321, 241})
    ->Iterations(1);
BENCHMARK(measure_memory)->Name("pixels_3840x2160")->Iterations(1);

} // namespace

} // namespace lookfar::bench
