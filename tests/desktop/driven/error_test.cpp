#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

class ErrorDisplay : public DrivenTest {
  protected:
    void SetUp() override { start({"Harbour"}); }

    bool is_told(std::string_view beginning, Politeness politeness) {
        return comes_true([&] { return reader.was_told(beginning, politeness); });
    }
};

TEST_F(ErrorDisplay, BlinksOverATestCardInFullscreenAndStandsInTheMainWindowUntilAllIsWell) {
    constexpr const char* test_card = "image 'Test card: no picture can be had'";
    const QPoint edge = picture() + QPoint(0, 80);
    ASSERT_TRUE(comes_to_show(edge, colour::red));
    fill_in(title::main_window, "Seconds until Refresh", "1");
    hands.double_click(picture());
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    cameras->answer("/Harbour", [](const demo::Request&) { return demo::status_page(503); });
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, test_card));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'The camera answered 503 Service"));
    for (int count = 0; count < 2; ++count) {
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'Error #481"));
        EXPECT_TRUE(stops_reading(title::fullscreen_window, "label 'Error #481"));
    }

    hands.double_click(find(title::fullscreen_window, test_card).place().center());
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(comes_to_read(title::main_window, "label 'Error #481"));
    EXPECT_TRUE(stops_reading(title::main_window, "image 'Camera picture'"));
    EXPECT_TRUE(comes_to_show(edge, colour::black));
    cameras->answer("/Harbour", showing(colour::green));
    EXPECT_TRUE(comes_to_show(edge, colour::green));
    EXPECT_TRUE(stops_reading(title::main_window, "label 'Error #"));
    EXPECT_TRUE(stops_reading(title::main_window, "label 'The camera answered"));
}

TEST_F(ErrorDisplay, IsToldAtOnceAndTheStatusAtLeisureInBothWindows) {
    constexpr const char* status = "Screenshot taken: ";
    constexpr const char* error = "Failed to connect to 127.0.0.1";
    EXPECT_TRUE(is_told(status, Politeness::waits));
    fill_in(title::main_window, "Seconds until Refresh", "1");
    reader.forget();
    EXPECT_TRUE(is_told(status, Politeness::waits)) << "a new one";

    const QPoint middle = picture();
    cameras.reset();
    EXPECT_TRUE(is_told(error, Politeness::interrupts));
    reader.forget();
    hands.double_click(middle);
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    EXPECT_TRUE(is_told(status, Politeness::waits));
    EXPECT_TRUE(is_told(error, Politeness::interrupts));
    EXPECT_FALSE(reader.was_told("Error #", Politeness::interrupts)) << "it blinks";
}

} // namespace
} // namespace lookfar::driven
