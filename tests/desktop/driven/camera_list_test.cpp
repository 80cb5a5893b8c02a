#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

/// The list window, open on two cameras, and the editor.
class CameraList : public DrivenTest {
  protected:
    void SetUp() override {
        cameras->answer("/Harbour", showing(colour::red));
        cameras->answer("/Tower", showing(colour::blue));
        start({"Harbour", "Tower"});
        click(title::main_window, role::button, "Camera list");
        ASSERT_TRUE(comes_up(title::list_window));
    }

    void press_button(const char* button) { click(title::list_window, role::button, button); }

    void pick(const char* camera) {
        click(title::list_window, role::list_item, camera);
        EXPECT_TRUE(comes_to_select(camera));
    }

    bool comes_to_select(const std::string& camera) const {
        return comes_true(
            [&] { return find(title::list_window, role::list_item, camera).is(State::selected); });
    }

    /// Answers a question, which goes then.
    void answer(const char* question, const char* button) {
        click(question, role::button, button);
        EXPECT_TRUE(stops_reading(question, role::button, button));
    }

    /// Opens the editor, whose title box has the keyboard then.
    void open_editor(const char* button) {
        press_button(button);
        ASSERT_TRUE(comes_up(title::editor));
        ASSERT_TRUE(title_gets_keyboard());
    }

    Element title_box() const { return find(title::editor, role::entry, "Title"); }
    bool title_gets_keyboard() const {
        return comes_true([this] { return title_box().is(State::focused); });
    }

    void type_camera(const std::string& title, const std::string& path) {
        hands.type(title);
        hands.press(Key::tab);
        hands.type(cameras->url(path));
    }

    /// What the list file holds of a camera.
    std::string record(const std::string& title, const std::string& path) const {
        return title + "\r\n" + cameras->url(path) + "\r\n";
    }
    static std::string file() { return lookfar::testing::content_of("Cams.inf"); }
};

TEST_F(CameraList, PicksTheCameraOfTheMainWindow) {
    EXPECT_TRUE(comes_to_select(find(title::main_window, role::selector, "").name()));
    for (const char* const camera : {"Tower", "Harbour"}) {
        pick(camera);
        EXPECT_TRUE(comes_to_read(title::main_window, role::selector, camera));
    }
    press_button("Ok");
    EXPECT_TRUE(goes(title::list_window));
    ASSERT_TRUE(comes_up(title::main_window));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::red));
}

TEST_F(CameraList, LosesACameraOnceTheQuestionIsAnsweredByYes) {
    const std::string whole = file();
    pick("Tower");
    press_button("Remove");
    EXPECT_TRUE(
        comes_to_read(title::removal_question, role::any, "Do you really want to remove 'Tower'"));
    answer(title::removal_question, "No");
    EXPECT_EQ(file(), whole);
    press_button("Remove");
    answer(title::removal_question, "Yes");
    EXPECT_TRUE(stops_reading(title::list_window, role::list_item, "Tower"));
    EXPECT_TRUE(comes_to_select("Harbour"));
    EXPECT_EQ(file(), record("Harbour", "/Harbour"));
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Harbour"));
}

TEST_F(CameraList, GetsACameraThatIsTypedOnTheKeyboard) {
    const std::string before = file();
    cameras->answer("/quay", showing(colour::green));
    open_editor("Add...");
    type_camera("Old Quay, Ryde", "/quay");
    hands.press(Key::enter);
    EXPECT_TRUE(goes(title::editor));
    EXPECT_TRUE(comes_to_select("Old Quay, Ryde"));
    EXPECT_EQ(file(), before + record("Old Quay, Ryde", "/quay"));
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Old Quay, Ryde"));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::green));
}

TEST_F(CameraList, StaysAsItIsWhenTheEditorIsCancelled) {
    const std::string before = file();
    pick("Tower");
    for (int count = 0; count < 2; ++count) {
        open_editor("Edit...");
        EXPECT_EQ(title_box().text(), "Tower");
        EXPECT_EQ(find(title::editor, role::entry, "URL").text(), cameras->url("/Tower"));
        hands.type("s of the town");
        hands.press(Key::tab);
        hands.press(Key::escape);
        click(title::editor, role::button, "Cancel");
        EXPECT_TRUE(goes(title::editor));
        EXPECT_TRUE(comes_to_select("Tower"));
        EXPECT_EQ(file(), before);
    }
}

TEST_F(CameraList, AsksBeforeACameraIsOverwritten) {
    const std::string before = file();
    open_editor("Add...");
    type_camera("Tower", "/other");
    click(title::editor, role::button, "Ok");
    EXPECT_TRUE(comes_to_read(title::overwrite_question, role::any,
                              "A cam with this description already exists!"));
    answer(title::overwrite_question, "No");
    EXPECT_EQ(file(), before);
    EXPECT_TRUE(title_gets_keyboard());

    click(title::editor, role::button, "Ok");
    answer(title::overwrite_question, "Yes");
    EXPECT_TRUE(goes(title::editor));
    EXPECT_TRUE(comes_to_select("Tower"));
    EXPECT_EQ(file(), record("Harbour", "/Harbour") + record("Tower", "/other"));
}

} // namespace
} // namespace lookfar::driven
