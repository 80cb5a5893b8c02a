#include "desktop/driven/driven_test.h"
#include "desktop/driven/held_camera.h"

namespace lookfar::driven {
namespace {

class Refresh : public DrivenTest {
  protected:
    /// Starts the program on one camera that shows red, and keeps it from asking by itself for the
    /// rest of the test.
    void start_at_rest() {
        cameras->answer("/Harbour", showing(colour::red));
        start({"Harbour"});
        fill_in(title::main_window, "Seconds until Refresh", "60");
    }
};

TEST_F(Refresh, FetchesTheCamerasNewPictureWhenReloadIsPressed) {
    start_at_rest();
    ASSERT_TRUE(comes_to_show(picture(title::main_window), colour::red));
    const auto before = cameras->requests();

    cameras->answer("/Harbour", showing(colour::blue));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::blue));
    EXPECT_EQ(cameras->requests(), before + 1);
}

TEST_F(Refresh, ComesAsOftenAsIsTyped) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    EXPECT_EQ(find(title::main_window, role::entry, "Seconds until Refresh").text(), "10");
    fill_in(title::main_window, "Seconds until Refresh", "1");
    const auto before = cameras->requests();
    EXPECT_TRUE(comes_true([&] { return cameras->requests() >= before + 2; }));
    cameras->answer("/Harbour", showing(colour::green));
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::green));
}

TEST_F(Refresh, LeavesTheWindowToItsUserWhileACameraIsSlow) {
    start_at_rest();
    const auto before = cameras->requests();
    HeldCamera camera(plain_picture(colour::blue));
    cameras->answer("/Harbour", camera.responder());
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_read(title::main_window, role::picture, "A picture is on its way"));
    EXPECT_TRUE(find(title::main_window, role::check_box, "Blur Effect").is_checked());
    click(title::main_window, role::check_box, "Blur Effect");
    EXPECT_TRUE(comes_true(
        [this] { return !find(title::main_window, role::check_box, "Blur Effect").is_checked(); }));
    EXPECT_TRUE(is_like(screen.colour_at(picture(title::main_window)), colour::red));

    camera.let_go();
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::blue));
    EXPECT_TRUE(stops_reading(title::main_window, role::picture, "A picture is on its way"));
    EXPECT_EQ(cameras->requests(), before + 1);
}

} // namespace
} // namespace lookfar::driven
