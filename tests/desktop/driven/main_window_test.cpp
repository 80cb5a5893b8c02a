#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

using MainWindow = DrivenTest;

TEST_F(MainWindow, IsItsUsersWhileACameraIsSlow) {
    start({"Harbour"});
    // Keeps the program from asking by itself for the rest of the test.
    fill_in(title::main_window, "Seconds until Refresh", "60");
    const auto before = cameras->requests();
    std::promise<void> let_go;
    cameras->answer("/Harbour", held_back(showing(colour::blue), let_go));
    click(title::main_window, "push button 'Reload'");
    EXPECT_TRUE(comes_to_read(title::main_window, "image 'A picture is on its way'"));
    EXPECT_TRUE(comes_to_be(State::checked, title::main_window, "check box 'Blur Effect'"));
    click(title::main_window, "check box 'Blur Effect'");
    EXPECT_TRUE(stops_being(State::checked, title::main_window, "check box 'Blur Effect'"));
    EXPECT_TRUE(is_like(colour_at(picture()), colour::red));
    open_menu([this] { hands.click(picture(), MouseButton::right); });
    hands.type("a");
    ASSERT_TRUE(comes_up(title::about_window));

    let_go.set_value();
    EXPECT_TRUE(comes_to_show(picture(), colour::blue)) << "the windows stand side by side";
    EXPECT_TRUE(stops_reading(title::main_window, "image 'A picture is on its way'"));
    EXPECT_EQ(cameras->requests(), before + 1);
    EXPECT_EQ(cameras->connections(), 1U) << "the connection is kept";
    click(title::about_window, "push button 'Ok'");
    EXPECT_TRUE(goes(title::about_window));
    EXPECT_TRUE(comes_up(title::main_window));

    click(title::main_window, "push button 'Seconds until Refresh -'");
    EXPECT_TRUE(comes_to_read(title::main_window, "text 'Seconds until Refresh' holding '9'"));
    EXPECT_TRUE(comes_true([this] { return reader.heard("accessible-value"); }));
}

} // namespace
} // namespace lookfar::driven
