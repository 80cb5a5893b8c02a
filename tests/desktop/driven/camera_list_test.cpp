#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

/// The list window, open on two cameras, and the editor.
class CameraList : public DrivenTest {
  protected:
    void SetUp() override {
        start({"Harbour", "Tower"});
        click(title::main_window, "push button 'Camera list'");
        ASSERT_TRUE(comes_up(title::list_window));
    }

    void press(const std::string& button) {
        click(title::list_window, "push button '" + button + "'");
    }

    void pick(const std::string& camera) {
        click(title::list_window, "list item '" + camera + "'");
        EXPECT_TRUE(comes_to_select(camera));
    }

    bool comes_to_select(const std::string& camera) const {
        return comes_to_be(State::selected, title::list_window, "list item '" + camera + "'");
    }

    /// Answers a question, which goes then.
    void answer(const std::string& question, const std::string& button) {
        ASSERT_TRUE(comes_up(question));
        click(question, "push button '" + button + "'");
        EXPECT_TRUE(stops_reading(question, "push button '" + button + "'"));
    }

    /// Opens the editor on a new camera, whose title box has the keyboard then.
    void open_editor() {
        press("Add...");
        ASSERT_TRUE(comes_up(title::editor));
        ASSERT_TRUE(comes_to_be(State::focused, title::editor, "text 'Title'"));
    }

    /// What the list file holds of a camera.
    std::string record(const std::string& title, const std::string& path) const {
        return title + "\r\n" + cameras->url(path) + "\r\n";
    }
    static std::string file() { return lookfar::testing::content_of("Cams.inf"); }
};

TEST_F(CameraList, LosesACameraOnceTheQuestionIsAnsweredByYes) {
    const std::string whole = file();
    EXPECT_TRUE(comes_to_select(selected_camera()));
    pick("Harbour");
    pick("Tower");
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Tower'"));
    hands.press(Key::del);
    EXPECT_TRUE(
        comes_to_read(title::removal_question, "label 'Do you really want to remove 'Tower'"));
    answer(title::removal_question, "No");
    EXPECT_TRUE(comes_up(title::list_window)) << "the keyboard is given back";
    EXPECT_EQ(file(), whole);
    press("Remove");
    answer(title::removal_question, "Yes");
    EXPECT_TRUE(stops_reading(title::list_window, "list item 'Tower'"));
    EXPECT_TRUE(comes_to_select("Harbour"));
    EXPECT_EQ(file(), record("Harbour", "/Harbour"));
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Harbour"));
}

TEST_F(CameraList, GetsACameraThatIsTypedOnTheKeyboard) {
    const std::string before = file();
    open_editor();
    hands.type("Old Quay, Ryde");
    hands.press(Key::tab);
    hands.type(cameras->url("/Quay"));
    hands.press(Key::escape); // Closes nothing.
    hands.press(Key::enter);
    EXPECT_TRUE(goes(title::editor));
    EXPECT_TRUE(comes_to_select("Old Quay, Ryde"));
    EXPECT_EQ(file(), before + record("Old Quay, Ryde", "/Quay"));
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Old Quay, Ryde"));
    click(title::main_window, "push button 'Reload'");
    EXPECT_TRUE(comes_to_show(picture(), colour::green));
}

TEST_F(CameraList, TellsThatACameraNeedsATitleUntilOneIsTyped) {
    constexpr const char* hint = "A camera needs a title.";
    const std::string label = std::string("label '") + hint;
    open_editor();
    hands.press(Key::enter);
    EXPECT_TRUE(comes_to_read(title::editor, label));
    EXPECT_TRUE(comes_true([&] { return reader.was_told(hint, Politeness::interrupts); }));
    const QRect url(place(title::editor, "label 'URL'").topLeft(), QSize(24, 17));
    EXPECT_FALSE(place(title::editor, label).intersects(url));
    click(title::editor, "text 'URL");
    EXPECT_TRUE(stops_reading(title::editor, label));
    click(title::editor, "push button 'Ok'");
    EXPECT_TRUE(comes_to_read(title::editor, label));
    hands.type("x");
    EXPECT_TRUE(stops_reading(title::editor, label));
    click(title::editor, "push button 'Cancel'");
    EXPECT_TRUE(goes(title::editor));
}

} // namespace
} // namespace lookfar::driven
