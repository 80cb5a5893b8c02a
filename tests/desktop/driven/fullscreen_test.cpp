#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

class Fullscreen : public DrivenTest {
  protected:
    /// Starts the program on cameras that are asked every second.
    void start_quick(const Titles& titles) {
        cameras->answer("/Harbour", showing(colour::red));
        cameras->answer("/Tower", showing(colour::blue));
        start(titles);
        fill_in(title::main_window, "Seconds until Refresh", "1");
    }

    void open() {
        hands.double_click(picture(title::main_window));
        ASSERT_TRUE(comes_up(title::fullscreen_window));
    }

    void leave() {
        hands.double_click(screen::whole().center());
        ASSERT_TRUE(comes_up(title::main_window));
    }

    QRect panel_selector() const { return find(title::fullscreen_window, "combo box").place(); }

    /// Opens the selector's list and picks from it.
    void pick(const std::string& camera) {
        hands.click(panel_selector().center());
        click(title::fullscreen_window, "list item '" + camera);
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "combo box '" + camera));
    }

    /// The arrow that moves the panel stands at its left end, in front of the selector.
    void click_arrow() {
        const QRect selector = panel_selector();
        hands.click({selector.left() - 22, selector.center().y()});
    }
};

TEST_F(Fullscreen, OpensAndLeavesOnADoubleClick) {
    start_quick({"Harbour"});
    const QRect place = window(title::main_window)->place;
    open();
    EXPECT_TRUE(comes_true([this] {
        const auto large = window(title::fullscreen_window);
        return large->is_fullscreen && large->place == screen::whole();
    }));
    EXPECT_TRUE(goes(title::main_window));
    EXPECT_TRUE(comes_to_show(screen::whole().center(), colour::red));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'Harbour"));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'Screenshot taken: "));
    cameras->answer("/Harbour", showing(colour::green));
    EXPECT_TRUE(comes_to_show(screen::whole().center(), colour::green));

    leave();
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_EQ(window(title::main_window)->place, place);
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::green));
}

TEST_F(Fullscreen, GivesWayToTheMainWindowWhenItIsClosed) {
    start_quick({"Harbour"});
    open();
    close(title::fullscreen_window);
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_FALSE(has_ended());
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::red));
}

TEST_F(Fullscreen, HasAPanelThatPicksCameras) {
    start_quick({"Harbour", "Tower"});
    open();
    for (const auto& [camera, its_colour] : {std::pair(std::string("Tower"), colour::blue),
                                             std::pair(std::string("Harbour"), colour::red)}) {
        pick(camera);
        EXPECT_TRUE(comes_to_show(screen::whole().center(), its_colour));
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label '" + camera));
    }
    leave();
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Harbour"));
}

TEST_F(Fullscreen, HasAPanelThatSlidesOutOfTheWay) {
    start_quick({"Harbour"});
    open();
    const QRect open_place = panel_selector();
    const QPoint under_panel = open_place.topLeft() - QPoint(2, 0);
    const QColor nothing = screen::colour_at({under_panel.y(), under_panel.y()});
    ASSERT_TRUE(screen::whole().contains(open_place));
    EXPECT_FALSE(is_like(screen::colour_at(under_panel), nothing));

    click_arrow();
    EXPECT_TRUE(comes_true([this] { return !screen::whole().intersects(panel_selector()); }));
    EXPECT_TRUE(comes_to_show(under_panel, nothing));
    click_arrow();
    EXPECT_TRUE(comes_true([&] { return panel_selector() == open_place; }));
}

} // namespace
} // namespace lookfar::driven
