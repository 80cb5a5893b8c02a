#include "desktop/driven/driven_test.h"

#include "demo/misbehaviour.h"

namespace lookfar::driven {
namespace {

using End = DrivenTest;

TEST_F(End, ComesWhenTheMainWindowIsClosed) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    EXPECT_TRUE(lookfar::testing::exists("data.dat"));
    close(title::main_window);
    EXPECT_TRUE(ends_with_status_0());
    EXPECT_FALSE(lookfar::testing::exists("data.dat"));
}

TEST_F(End, WaitsForNoCameraThatHoldsItsAnswerBack) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    EXPECT_TRUE(lookfar::testing::exists("data.dat"));
    cameras->answer("/Harbour", demo::stall());
    click(title::main_window, role::button, "Reload");
    ASSERT_TRUE(comes_true([this] { return cameras->requests() == 2; }));
    close(title::main_window);
    EXPECT_TRUE(ends_with_status_0());
    EXPECT_FALSE(lookfar::testing::exists("data.dat"));
}

} // namespace
} // namespace lookfar::driven
