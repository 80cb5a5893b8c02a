#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

using Refresh = DrivenTest;

TEST_F(Refresh, FetchesTheCamerasNewPictureWhenReloadIsPressed) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    ASSERT_TRUE(comes_to_show(picture(title::main_window), colour::red));
    ASSERT_EQ(cameras->requests(), 1U);

    cameras->answer("/Harbour", showing(colour::blue));
    click(title::main_window, "push button", "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::blue));
    EXPECT_EQ(cameras->requests(), 2U);
}

} // namespace
} // namespace lookfar::driven
