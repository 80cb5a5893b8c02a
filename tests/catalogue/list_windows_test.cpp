#include "support/machine.h"

#include <gtest/gtest.h>

namespace lookfar::testing {
namespace {

/// A started program with the list window open.
struct ListWindows : ::testing::Test {
    Machine machine{3};
    Window<MainWindow>& Form1 = machine.Form1;
    Window<FullscreenWindow>& Form2 = machine.Form2;
    Window<CameraListWindow>& Form3 = machine.Form3;
    Window<CameraEditor>& Form4 = machine.Form4;
    const std::string list = content_of("Cams.inf");

    ListWindows() {
        machine.start();
        machine.pick(1);
        Form1->Command1.Click.raise();
    }
    void answer(MessageBoxAnswer button) {
        machine.platform.box_answers.emplace_back([button](const MessageBox&) { return button; });
    }
    void save(const std::string& title, const std::string& url) {
        Form4->Text1.Text = title;
        Form4->Text2.Text = url;
        machine.program.runtime.deliver([this] { Form4->Command1.Click.raise(); });
    }
    void press_remove() {
        machine.program.runtime.deliver([this] { Form3->Command2.Click.raise(); });
    }
    void expect_selected(const std::string& title) {
        EXPECT_EQ(Form1->Combo1.Text.get(), title);
        EXPECT_EQ(Form2->Combo1.Text.get(), title);
        EXPECT_EQ(Form3->List1.Text.get(), title);
    }
    void let_tick() { machine.platform.run_for(milliseconds(5)); }
};

TEST_F(ListWindows, OpenOnTheCurrentCameraAndPickAtOnce) {
    EXPECT_TRUE(Form3->Visible && Form3->Timer1.Enabled);
    expect_selected("b");
    Form3->List1.ListIndex = 2;
    expect_selected("c");
    Form3->request_close();
    EXPECT_FALSE(Form3->Visible || Form3->Timer1.Enabled);
    EXPECT_EQ(machine.platform.brought_forward.back(), &*Form1);
    EXPECT_EQ(Form3->List1.ListCount(), 3);
    Form1->Combo1.ListIndex = 0;
    EXPECT_EQ(Form3->List1.Text.get(), "c") << "only an opening brings the list into line";
    Form1->Command1.Click.raise();
    expect_selected("a");
}

TEST_F(ListWindows, AskBeforeTheyRemoveAndSelectTheFirstCameraAfterwards) {
    answer(MessageBoxAnswer::no);
    press_remove();
    EXPECT_EQ(machine.platform.boxes[0].text,
              "Do you really want to remove 'b' from your Skyglass list?");
    EXPECT_EQ(machine.platform.boxes[0].title, "Remove Skyglass");
    EXPECT_EQ(machine.platform.boxes[0].flags, MessageBoxFlag{36});
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_FALSE(exists("C1.DAT"));

    answer(MessageBoxAnswer::yes);
    press_remove();
    EXPECT_EQ(content_of("Cams.inf"),
              "a\r\n" + Machine::url_of('a') + "\r\nc\r\n" + Machine::url_of('c') + "\r\n");
    EXPECT_EQ(Form3->List1.ListIndex, -1);
    let_tick();
    expect_selected("a");
    EXPECT_EQ(Form3->List1.ListCount(), 2);
}

TEST_F(ListWindows, StayUsableWhenTheLastCameraIsRemoved) {
    let_tick();
    const auto picture = Form1->ImagNT1.Picture.get();
    for (int camera = 0; camera < 3; ++camera) {
        answer(MessageBoxAnswer::yes);
        press_remove();
        let_tick();
    }
    EXPECT_EQ(Form1->Combo1.ListCount() + Form2->Combo1.ListCount() + Form3->List1.ListCount(), 0);
    EXPECT_EQ(content_of("Cams.inf"), "");
    const auto requests = machine.platform.requests.size();
    Form1->Command2.Click.raise();
    EXPECT_EQ(machine.platform.requests.size(), requests);
    EXPECT_EQ(Form1->ImagNT1.Picture.get(), picture);

    answer(MessageBoxAnswer::yes);
    press_remove();
    machine.program.runtime.deliver([this] { Form3->Command3.Click.raise(); });
    EXPECT_EQ(content_of("Cams.inf"), "");
    Form3->Command1.Click.raise();
    save("new", Machine::url_of('a'));
    expect_selected("new");
}

TEST_F(ListWindows, AddACameraAtTheEndAndSelectIt) {
    Form3->Command1.Click.raise();
    EXPECT_TRUE(Form4->Visible);
    EXPECT_EQ(Form4->Text1.Text.get() + Form4->Text2.Text.get(), "");
    save("B\xC3\xBC\nro", "http://new.example/\r\n");
    EXPECT_EQ(content_of("Cams.inf"), list + "B\xC3\xBC ro\r\nhttp://new.example/  \r\n");
    EXPECT_FALSE(Form4->Visible);
    expect_selected("B\xC3\xBC ro");
    EXPECT_EQ(machine.platform.focus, &Form4->Text1);
    EXPECT_EQ(machine.platform.brought_forward.back(), &*Form3);
    Form1->Command2.Click.raise();
    EXPECT_EQ(machine.platform.requests.back(), "http://new.example/  ");
}

TEST_F(ListWindows, AskBeforeTheyOverwriteACamera) {
    Form3->Command1.Click.raise();
    answer(MessageBoxAnswer::no);
    save("a", "http://new.example/");
    EXPECT_EQ(machine.platform.boxes[0].flags, MessageBoxFlag{292});
    EXPECT_EQ(machine.platform.boxes[0].title, "");
    EXPECT_TRUE(Form4->Visible);
    EXPECT_EQ(Form4->Text1.Text.get(), "a");
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_TRUE(exists("C1.DAT"));

    answer(MessageBoxAnswer::yes);
    save("a", "http://new.example/");
    EXPECT_FALSE(Form4->Visible);
    EXPECT_TRUE(content_of("Cams.inf").starts_with("a\r\nhttp://new.example/\r\nb\r\n"));
    expect_selected("a");
    EXPECT_EQ(Form3->List1.ListCount(), 3);
}

TEST_F(ListWindows, SkipTheRefreshUnderTheQuestionOfTheEditor) {
    Form3->Command1.Click.raise();
    const auto requests = machine.platform.requests.size();
    machine.platform.box_answers.emplace_back([&](const MessageBox&) {
        Form1->Command2.Click.raise();
        return MessageBoxAnswer::yes;
    });
    save("a", "http://new.example/");
    EXPECT_EQ(machine.platform.requests.size(), requests);
    EXPECT_TRUE(content_of("Cams.inf").starts_with("a\r\nhttp://new.example/\r\nb\r\n"));
}

TEST_F(ListWindows, EditTheSelectedCameraInItsPlace) {
    Form3->Command3.Click.raise();
    EXPECT_EQ(Form4->Text1.Text.get(), "b");
    EXPECT_EQ(Form4->Text2.Text.get(), Machine::url_of('b'));
    save("b", Machine::url_of('b'));
    EXPECT_EQ(content_of("Cams.inf"), list);
    expect_selected("b");

    Form3->Command3.Click.raise();
    save("a", "http://new.example/");
    EXPECT_TRUE(machine.platform.boxes.empty());
    EXPECT_EQ(content_of("Cams.inf"), "a\r\n" + Machine::url_of('a') +
                                          "\r\na\r\nhttp://new.example/\r\nc\r\n" +
                                          Machine::url_of('c') + "\r\n");
}

TEST_F(ListWindows, EditOfACameraThatIsNotInTheFileKeepsTheEditorsUrl) {
    write_file("Cams.inf", "x\r\nux\r\n");
    Form3->Command3.Click.raise();
    EXPECT_EQ(Form4->Text1.Text.get(), "b");
    EXPECT_EQ(Form4->Text2.Text.get(), "Text2");
    save("b", "new");
    EXPECT_EQ(content_of("Cams.inf"), "x\r\nux\r\nb\r\nnew\r\n");
}

TEST_F(ListWindows, LeaveTheEditorByItsTwoButtonsOnly) {
    Form3->Command1.Click.raise();
    Form4->Text1.Text = "typed";
    Form4->request_close();
    EXPECT_TRUE(Form4->Visible);
    Form4->Text1.Text = "";
    save("", "http://new.example/");
    EXPECT_TRUE(Form4->Visible) << "without a title there is nothing to save";
    Form4->Command2.Click.raise();
    EXPECT_FALSE(Form4->Visible);
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_EQ(Form4->Text2.Text.get(), "http://new.example/");
    EXPECT_TRUE(machine.platform.untrapped.empty());
}

} // namespace
} // namespace lookfar::testing
