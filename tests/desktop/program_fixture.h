#pragma once

#include "desktop/desktop_fixture.h"

#include "acquisition/main_window.h"
#include "demo/camera_server.h"
#include "program.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace lookfar::desktop {

inline demo::Responder picture(int width, int height,
                               std::chrono::milliseconds delay = std::chrono::milliseconds(0)) {
    const Bytes file = lookfar::testing::detailed_jpeg(width, height);
    return [file, delay](const demo::Request&) {
        return demo::Answer{.status = 200,
                            .content_type = "image/jpeg",
                            .body = std::string(file.begin(), file.end()),
                            .headers = {},
                            .delay = delay};
    };
}

/// The whole program in real windows, on cameras of this machine.
class ProgramTest : public DesktopTest {
  protected:
    void start(const std::vector<std::string>& paths) {
        std::string list;
        for (const std::string& path : paths)
            list += path + "\r\n" + cameras->url(path) + "\r\n";
        lookfar::testing::write_file("Cams.inf", list);
        program.start();
        ASSERT_TRUE(
            comes_true([&] { return program.Form1.is_loaded() && program.Form1->Visible; }));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window(*program.Form1)));
    }
    void reload() { QTest::mouseClick(&widget(program.Form1->Command2), Qt::LeftButton); }

    lookfar::testing::TemporaryFolder folder;
    std::optional<demo::CameraServer> cameras{std::in_place};
    Program program{platform};
};

} // namespace lookfar::desktop
