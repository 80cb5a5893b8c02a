#include "camera_process.h"
#include "idle_bench.h"
#include "list_bench.h"
#include "refresh_bench.h"
#include "stall_bench.h"

#include "desktop/desktop_platform.h"
#include "support/pictures.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <list>
#include <string>

namespace {

/// A desktop on which nobody needs to sit: every question is answered with Yes.
class UnattendedDesktop : public lookfar::DesktopPlatform {
  public:
    using DesktopPlatform::DesktopPlatform;

    lookfar::MessageBoxAnswer ask(const lookfar::MessageBox&) override {
        return lookfar::MessageBoxAnswer::yes;
    }
};

/// A camera that serves two pictures of one size in turn.
struct MeasuredCamera {
    MeasuredCamera(int width, int height)
        : size(std::to_string(width) + "x" + std::to_string(height)),
          picture(lookfar::testing::detailed_jpeg(width, height)),
          process({picture, lookfar::testing::detailed_jpeg(width, height, 2)}) {}

    std::string size;
    lookfar::Bytes picture;
    lookfar::bench::CameraProcess process;
};

} // namespace

// Figures are told in processor time of this process wherever that can be, and as multiples of
// what the machine itself needs for something plain.
int main(int argument_count, char** arguments) {
    using namespace lookfar;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::list<MeasuredCamera> cameras;
    cameras.emplace_back(640, 480);
    cameras.emplace_back(1920, 1080);
    cameras.emplace_back(3840, 2160);
    const MeasuredCamera& large = cameras.back();

    benchmark::Initialize(&argument_count, arguments);
    UnattendedDesktop platform(argument_count, arguments,
                               std::vector<std::span<const std::uint8_t>>{});
    for (const MeasuredCamera& camera : cameras)
        bench::register_refreshes(platform, camera.size, camera.process.url(), camera.picture);
    bench::register_stalls(platform, large.process.url(), large.picture);
    bench::register_rests(platform, large.process.url());
    bench::register_lists(platform);
    benchmark::RunSpecifiedBenchmarks();
}
