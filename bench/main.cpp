#include "idle_bench.h"
#include "list_bench.h"

#include "demo/camera_server.h"
#include "desktop/desktop_platform.h"
#include "support/pictures.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <span>
#include <vector>

namespace {

/// A desktop on which nobody needs to sit: every question is answered with Yes.
class UnattendedDesktop : public lookfar::DesktopPlatform {
  public:
    using DesktopPlatform::DesktopPlatform;

    lookfar::MessageBoxAnswer ask(const lookfar::MessageBox&) override {
        return lookfar::MessageBoxAnswer::yes;
    }
};

} // namespace

// Figures are told in processor time of this process wherever that can be, and as multiples of
// what the machine itself needs for something plain.
int main(int argument_count, char** arguments) {
    using namespace lookfar;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const Bytes jpeg = testing::detailed_jpeg(3840, 2160);
    demo::CameraServer camera;
    camera.answer("/picture.jpg", [&](const demo::Request&) {
        return demo::Answer{.content_type = "image/jpeg", .body = {jpeg.begin(), jpeg.end()}};
    });

    benchmark::Initialize(&argument_count, arguments);
    UnattendedDesktop platform(argument_count, arguments,
                               std::vector<std::span<const std::uint8_t>>{}, LOOKFAR_DECODER);
    bench::register_rests(platform, camera.url("/picture.jpg"));
    bench::register_lists(platform);
    benchmark::RunSpecifiedBenchmarks();
}
