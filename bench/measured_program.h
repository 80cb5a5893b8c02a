#pragma once

#include "program.h"
#include "support/temporary_folder.h"

#include <string>

namespace lookfar::bench {

/// A program on one camera, in a folder of its own, loaded without a window on the screen. It
/// refreshes only when it is told to.
struct MeasuredProgram {
    MeasuredProgram(Platform& platform, const std::string& url);

    testing::TemporaryFolder folder;
    Program program;
};

} // namespace lookfar::bench
