#include "camera_process.h"
#include "list_bench.h"
#include "refresh_bench.h"
#include "stall_bench.h"

#include "runtime/desktop/desktop_platform.h"
#include "support/pictures.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

/// A desktop on which nobody needs to sit: every question is answered with Yes.
class UnattendedDesktop : public lookfar::DesktopPlatform {
  public:
    using DesktopPlatform::DesktopPlatform;

    short ask(const lookfar::MessageBox&) override { return lookfar::message_box_answer::yes; }
};

} // namespace

// Refreshes are told in processor time of this process, as multiples of what libjpeg-turbo needs
// for the same bytes; their windows stay hidden, so that painting is not counted.
int main(int argument_count, char** arguments) {
    using namespace lookfar;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const Bytes picture = testing::detailed_jpeg(1920, 1080);
    const bench::CameraProcess camera({picture, testing::detailed_jpeg(1920, 1080, 2)});
    const Bytes large = testing::detailed_jpeg(3840, 2160);
    const bench::CameraProcess large_camera({large, testing::detailed_jpeg(3840, 2160, 2)});

    benchmark::Initialize(&argument_count, arguments);
    UnattendedDesktop platform(argument_count, arguments,
                               std::vector<std::span<const std::uint8_t>>{});
    bench::register_refreshes(platform, camera.url(), picture);
    bench::register_lists(platform);
    bench::register_stalls(platform, large_camera.url(), large);
    benchmark::RunSpecifiedBenchmarks();
}
