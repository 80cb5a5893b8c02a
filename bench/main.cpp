#include "camera_process.h"
#include "refresh_bench.h"

#include "acquisition/main_window.h"
#include "program.h"
#include "runtime/desktop/desktop_platform.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

// Figures are processor time of this process, told as multiples of what the machine itself needs
// for the same bytes. The windows stay hidden: painting is not counted.
int main(int argument_count, char** arguments) {
    using namespace lookfar;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const Bytes picture = testing::detailed_jpeg(1920, 1080);
    const bench::CameraProcess camera({picture, testing::detailed_jpeg(1920, 1080, 2)});
    const testing::TemporaryFolder folder;
    testing::write_file("Cams.inf", "camera\r\n" + camera.url() + "\r\n");

    benchmark::Initialize(&argument_count, arguments);
    DesktopPlatform platform(argument_count, arguments, {});
    Program program(platform);
    program.runtime.deliver([&] { program.Form1->Timer1.Enabled = false; });
    bench::register_refreshes(program, picture);
    benchmark::RunSpecifiedBenchmarks();
}
