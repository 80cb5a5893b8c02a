#include "measured_program.h"

#include "acquisition/main_window.h"
#include "splash/splash_window.h"

namespace lookfar::bench {

MeasuredProgram::MeasuredProgram(Platform& platform, const std::string& url) : program(platform) {
    testing::write_file("Cams.inf", "camera\r\n" + url + "\r\n");
    program.Form1->Timer1.Enabled = false;
    program.Loading->Timer1.Enabled = false;
    program.Loading->Timer2.Enabled = false;
}

} // namespace lookfar::bench
