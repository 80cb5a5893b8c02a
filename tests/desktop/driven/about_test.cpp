#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

using AboutWindow = DrivenTest;

TEST_F(AboutWindow, OpensFromTheMenuBesideTheMainWindow) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    hands.click(picture(title::main_window), MouseButton::right);
    ASSERT_TRUE(opens_a_menu());
    hands.type("a");
    ASSERT_TRUE(comes_up(title::about_window));
    EXPECT_FALSE(screen::has_popup_of(program.processId()));

    cameras->answer("/Harbour", showing(colour::blue));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::blue));
    click(title::about_window, role::button, "Ok");
    EXPECT_TRUE(goes(title::about_window));
    EXPECT_TRUE(comes_up(title::main_window));
}

} // namespace
} // namespace lookfar::driven
