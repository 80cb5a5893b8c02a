#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

using Refresh = DrivenTest;

TEST_F(Refresh, LeavesTheWindowToItsUserWhileACameraIsSlow) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    // Keeps the program from asking by itself for the rest of the test.
    fill_in(title::main_window, "Seconds until Refresh", "60");
    const auto before = cameras->requests();
    std::promise<void> let_go;
    cameras->answer("/Harbour", held_back(showing(colour::blue), let_go));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_read(title::main_window, role::picture, "A picture is on its way"));
    const Element blur = find(title::main_window, role::check_box, "Blur Effect");
    EXPECT_TRUE(blur.is(State::checked));
    click(title::main_window, role::check_box, "Blur Effect");
    EXPECT_TRUE(comes_true([&] { return !blur.is(State::checked); }));
    EXPECT_TRUE(is_like(screen::colour_at(picture(title::main_window)), colour::red));

    let_go.set_value();
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::blue));
    EXPECT_TRUE(stops_reading(title::main_window, role::picture, "A picture is on its way"));
    EXPECT_EQ(cameras->requests(), before + 1);
    EXPECT_EQ(cameras->connections(), 1U) << "the connection is kept";
}

} // namespace
} // namespace lookfar::driven
