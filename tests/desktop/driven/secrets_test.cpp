#include "desktop/driven/driven_test.h"

#include "demo/locked_camera.h"

namespace lookfar::driven {
namespace {

/// A camera that asks for the user name and the password that stand in its address.
class Secrets : public DrivenTest {
  protected:
    void SetUp() override {
        const std::string place = "127.0.0.1:" + std::to_string(cameras->port()) + "/locked";
        lookfar::testing::write_file("Cams.inf", "Gate\r\nhttp://guest:secret@" + place +
                                                     "\r\nYard\r\nhttp://guest:secret@" + place +
                                                     "?yard\r\n");
        const auto answer = std::get<demo::Answer>(showing(colour::red)({}));
        cameras->answer("/locked", demo::locked_by_basic(answer));
        program.setProcessChannelMode(QProcess::MergedChannels);
        launch();
        ASSERT_TRUE(comes_up(title::main_window));
        fill_in(title::main_window, "Seconds until Refresh", "1");
        fill_in(title::main_window, "Seconds until the camera changes", "1");
        click(title::main_window, "check box 'Change every seconds'");
    }

    void expect_none_shown() {
        for (const Element& window : windows())
            expect_none_in(window);
        for (const char* untold : {"guest", "secret", "Err.Description"})
            EXPECT_FALSE(reader.heard(untold)) << untold;
    }

    /// Whether the element shows or not.
    static void expect_none_in(const Element& element) {
        const std::string description = element.description();
        for (const char* untold :
             {"guest", "secret", "Err.Description", "label '0'", "label '1'", "starting"})
            EXPECT_EQ(description.find(untold), std::string::npos) << description;
        for (const Element& child : element.children())
            expect_none_in(child);
    }
};

TEST_F(Secrets, ShowInNoWindowAndNoLogWhetherTheyOpenTheCameraOrNot) {
    ASSERT_TRUE(comes_to_show(picture(), colour::red));
    expect_none_shown();
    const QPoint middle = picture();
    cameras->answer("/locked", demo::locked_by_basic(demo::status_page(401)));
    constexpr const char* refused = "label 'The camera refuses the user name or the password";
    EXPECT_TRUE(comes_to_read(title::main_window, refused));
    expect_none_shown();
    hands.double_click(middle);
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, refused));
    expect_none_shown();
    cameras.reset();
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'The camera can't be reached."));
    expect_none_shown();
    const std::string log = program.readAll().toStdString();
    EXPECT_EQ(log.find("secret"), std::string::npos) << log;
}

} // namespace
} // namespace lookfar::driven
