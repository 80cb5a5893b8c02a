#include "desktop/driven/announcements.h"
#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

class Announcing : public DrivenTest {
  protected:
    ::testing::AssertionResult is_told(std::string_view beginning, Politeness politeness) {
        return comes_true([&] { return announcements.told(beginning, politeness); })
                   ? ::testing::AssertionSuccess()
                   : ::testing::AssertionFailure() << "Nobody told: " << beginning;
    }

    Announcements announcements;
};

TEST_F(Announcing, TellsTheStatusAtLeisureAndAnErrorAtOnceInBothWindows) {
    constexpr const char* status = "Screenshot taken: ";
    constexpr const char* error = "Failed to connect to 127.0.0.1";
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    EXPECT_TRUE(is_told(status, Politeness::waits));
    fill_in(title::main_window, "Seconds until Refresh", "1");
    announcements.forget();
    EXPECT_TRUE(is_told(status, Politeness::waits)) << "a new one";

    const QPoint middle = picture(title::main_window);
    cameras.reset();
    EXPECT_TRUE(is_told(error, Politeness::interrupts));
    announcements.forget();
    hands.double_click(middle);
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    EXPECT_TRUE(is_told(status, Politeness::waits));
    EXPECT_TRUE(is_told(error, Politeness::interrupts));
    EXPECT_FALSE(announcements.told("Error #", Politeness::interrupts)) << "it blinks";
}

} // namespace
} // namespace lookfar::driven
