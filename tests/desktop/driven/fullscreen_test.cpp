#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

class Fullscreen : public DrivenTest {
  protected:
    /// Starts the program on cameras that are asked every second.
    void SetUp() override {
        start({"Harbour", "Tower"});
        fill_in(title::main_window, "Seconds until Refresh", "1");
    }

    void open() {
        hands.double_click(picture());
        ASSERT_TRUE(comes_up(title::fullscreen_window));
    }

    QRect panel_selector() const { return place(title::fullscreen_window, "combo box"); }

    /// Opens the selector's list and picks from it.
    void pick(const std::string& camera) {
        hands.click(panel_selector().center());
        click(title::fullscreen_window, "list item '" + camera + "'");
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "combo box '" + camera + "'"));
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label '" + camera + "'"));
    }
};

TEST_F(Fullscreen, OpensAndLeavesOnADoubleClickAndHasAPanelThatPicksCameras) {
    const QRect before = place(title::main_window, "frame");
    open();
    EXPECT_TRUE(
        comes_true([this] { return place(title::fullscreen_window, "frame") == whole_screen(); }));
    EXPECT_TRUE(goes(title::main_window));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'Screenshot taken: "));
    pick("Tower");
    EXPECT_TRUE(comes_to_show(whole_screen().center(), colour::blue));
    pick("Harbour");
    EXPECT_TRUE(comes_to_show(whole_screen().center(), colour::red));

    hands.double_click(whole_screen().center());
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_EQ(place(title::main_window, "frame"), before);
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Harbour'"));
    EXPECT_TRUE(comes_to_show(picture(), colour::red));
}

TEST_F(Fullscreen, SlidesItsPanelOutOfTheWayAndGivesWayItselfWhenItIsClosed) {
    open();
    const QRect selector = panel_selector();
    // The arrow that moves the panel stands at its left end, in front of the selector.
    const QPoint arrow(selector.left() - 22, selector.center().y());
    const QPoint under_panel = selector.topLeft() - QPoint(2, 0);
    const QColor nothing = colour_at({under_panel.y(), under_panel.y()});
    EXPECT_FALSE(is_like(colour_at(under_panel), nothing));
    hands.click(arrow);
    EXPECT_TRUE(comes_true([this] { return !whole_screen().intersects(panel_selector()); }));
    EXPECT_TRUE(comes_to_show(under_panel, nothing));

    close_window();
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_FALSE(has_ended());
}

} // namespace
} // namespace lookfar::driven
