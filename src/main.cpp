#include "desktop/desktop_platform.h"
#include "program.h"
#include "resources/resources.h"

int main(int argument_count, char** arguments) {
    using lookfar::resources::icon;
    lookfar::DesktopPlatform platform(
        argument_count, arguments,
        {icon(16), icon(22), icon(24), icon(32), icon(48), icon(64), icon(128), icon(256)});
    lookfar::Program program(platform);
    program.start();
    platform.run();
}
