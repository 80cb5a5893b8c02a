#include "desktop/desktop_platform.h"
#include "program.h"
#include "resources/resources.h"

int main(int argument_count, char** arguments) {
    lookfar::DesktopPlatform platform(argument_count, arguments, lookfar::resources::icons());
    lookfar::Program program(platform);
    program.start();
    platform.run();
}
