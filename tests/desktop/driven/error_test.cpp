#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

class ErrorDisplay : public DrivenTest {
  protected:
    bool is_told(std::string_view beginning, Politeness politeness) {
        return comes_true([&] { return reader.was_told(beginning, politeness); });
    }
};

TEST_F(ErrorDisplay, StandsInBothWindowsAndIsToldAtOnceUntilTheCameraIsBack) {
    constexpr const char* error = "The camera can't be reached.";
    constexpr const char* test_card = "image 'Test card: no picture can be had'";
    start({"Harbour"});
    const QPoint edge = picture() + QPoint(0, 80);
    ASSERT_TRUE(comes_to_show(edge, colour::red));
    fill_in(title::main_window, "Seconds until Refresh", "1");
    reader.forget();
    EXPECT_TRUE(is_told("Screenshot taken: ", Politeness::waits)) << "a new status";
    hands.double_click(picture());
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    reader.forget();
    EXPECT_TRUE(is_told("Screenshot taken: ", Politeness::waits)) << "the other window's";

    const auto port = cameras->port();
    cameras.reset();
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, test_card));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, std::string("label '") + error));
    EXPECT_TRUE(is_told(error, Politeness::interrupts));
    reader.forget();
    for (int count = 0; count < 2; ++count) {
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'Error #7"));
        EXPECT_TRUE(stops_reading(title::fullscreen_window, "label 'Error #7"));
    }
    EXPECT_FALSE(reader.heard("Error #")) << "it blinks";
    EXPECT_FALSE(reader.heard("Screenshot taken: "));

    reader.forget();
    hands.double_click(place(title::fullscreen_window, test_card).center());
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(is_told(error, Politeness::interrupts));
    EXPECT_TRUE(comes_to_read(title::main_window, "label 'Error #7"));
    EXPECT_TRUE(stops_reading(title::main_window, "image 'Camera picture: Harbour'"));
    EXPECT_TRUE(comes_to_show(edge, colour::black));
    reader.forget();
    hands.double_click(edge);
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, std::string("label '") + error));
    EXPECT_FALSE(reader.was_told(error, Politeness::interrupts)) << "what it has told already";
    hands.double_click(place(title::fullscreen_window, test_card).center());
    ASSERT_TRUE(comes_up(title::main_window));
    reader.forget();
    cameras.emplace(port);
    cameras->answer("/Harbour", showing(colour::green));
    EXPECT_TRUE(comes_to_show(edge, colour::green));
    EXPECT_TRUE(stops_reading(title::main_window, "label 'Error #"));
    EXPECT_TRUE(stops_reading(title::main_window, std::string("label '") + error));
    EXPECT_TRUE(comes_true([this] { return reader.heard("showing 0"); }));
}

} // namespace
} // namespace lookfar::driven
