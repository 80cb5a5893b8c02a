#include "support/list_model.h"
#include "support/started.h"

namespace lookfar::testing {
namespace {

/// With the list window open.
struct ListWindows : Started<3> {
    const std::string list = content_of("Cams.inf");

    ListWindows() {
        pick(1);
        Form1->Command1.Click.raise();
    }
    void answer(MessageBoxAnswer button) {
        platform.box_answers.emplace_back([button] { return button; });
    }
    void save(const std::string& title, const std::string& url) {
        Form4->Text1.Text = title;
        Form4->Text2.Text = url;
        program.runtime.deliver([this] { Form4->Command1.Click.raise(); });
    }
    void press_remove() {
        program.runtime.deliver([this] { Form3->Command2.Click.raise(); });
    }
    void expect_selected(const std::string& title) {
        EXPECT_EQ(Form1->Combo1.Text.get(), title);
        EXPECT_EQ(Form2->Combo1.Text.get(), title);
        EXPECT_EQ(Form3->List1.Text.get(), title);
    }
    void let_tick() { platform.run_for(milliseconds(5)); }
};

TEST_F(ListWindows, OpenOnTheCurrentCameraAndPickAtOnce) {
    const std::function<void()> ways_out[] = {[&] { Form3->Command4.Click.raise(); },
                                              [&] { Form3->request_close(); }};
    for (const auto& leave : ways_out) {
        EXPECT_TRUE(Form3->Visible && Form3->Timer1.Enabled);
        expect_selected("b");
        Form3->List1.ListIndex = 2;
        expect_selected("c");
        Form1->Combo1.ListIndex = 0;
        let_tick();
        EXPECT_EQ(Form3->List1.Text.get(), "c") << "the rotation goes on elsewhere";
        leave();
        EXPECT_FALSE(Form3->Visible || Form3->Timer1.Enabled);
        EXPECT_EQ(platform.brought_forward.back(), &*Form1);
        EXPECT_EQ(Form3->List1.ListCount(), 3);
        Form1->Combo1.ListIndex = 1;
        EXPECT_EQ(Form3->List1.Text.get(), "c") << "only an opening brings the list into line";
        Form1->Command1.Click.raise();
    }
}

TEST_F(ListWindows, AskBeforeTheyRemoveAndSelectTheFirstCameraAfterwards) {
    answer(MessageBoxAnswer::no);
    Form3->List1.DeleteKey.raise();
    EXPECT_EQ(platform.boxes, Lines{"36 Remove Skyglass: Do you really want to remove 'b' from "
                                    "your Skyglass list?"});
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_FALSE(exists("C1.DAT"));

    platform.box_answers.emplace_back([&] {
        Form3->List1.ListIndex = 2; // The camera that was asked about goes all the same.
        return MessageBoxAnswer::yes;
    });
    press_remove();
    EXPECT_EQ(content_of("Cams.inf"), "a\r\n" + url_of('a') + "\r\nc\r\n" + url_of('c') + "\r\n");
    EXPECT_EQ(Form3->List1.ListIndex, -1);
    let_tick();
    expect_selected("a");
    EXPECT_EQ(Form3->List1.ListCount(), 2);
}

TEST_F(ListWindows, ShowWhatTheFileHoldsAndSayWhyWhenAChangeFails) {
    for (const std::string failing : {"open-create C1.DAT", "write C1.DAT", "sync C1.DAT",
                                      "replace Cams.inf", "replaced Cams.inf"}) {
        for (const bool adds : {true, false}) {
            platform.faulty_disk.fail(failing, ENOSPC);
            answer(MessageBoxAnswer::yes);
            adds ? save("new", "unew") : press_remove();
            platform.faulty_disk.mend();
            const bool is_changed = failing == "replaced Cams.inf";
            const int cameras = 3 + static_cast<int>(is_changed && adds);
            EXPECT_EQ(content_of("Cams.inf") == list, cameras == 3) << failing;
            EXPECT_EQ(Form3->List1.ListCount(), cameras) << failing;
            EXPECT_EQ(Form1->Combo1.ListCount(), cameras) << failing;
            EXPECT_FALSE(Form4->Visible) << failing;
            expect_error_display(false);
            const std::string told = adds ? "'new' was not saved. " : "'a' was not removed. ";
            decltype(platform.hints) hints;
            if (!is_changed)
                hints.emplace_back(&Form3->List1, told + failing + ": No space left on device");
            EXPECT_EQ(platform.hints, hints) << failing;
            platform.hints.clear();
            let_tick();
        }
    }
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
    const auto requests = platform.requests.size();
    refresh();
    EXPECT_EQ(platform.requests.size(), requests);
    EXPECT_EQ(Form1->ImagNT1.Picture.get(), picture);

    answer(MessageBoxAnswer::yes);
    press_remove();
    program.runtime.deliver([this] { Form3->Command3.Click.raise(); });
    EXPECT_EQ(content_of("Cams.inf"), "");
    Form3->Command1.Click.raise();
    save("new", url_of('a'));
    expect_selected("new");
}

TEST_F(ListWindows, AddACameraAtTheEndAndSelectIt) {
    Form3->Command3.Click.raise();
    Form3->Command1.Click.raise();
    EXPECT_TRUE(Form4->Visible);
    EXPECT_EQ(Form4->Text1.Text.get() + Form4->Text2.Text.get(), "");
    bool is_hidden = false;
    platform.faulty_disk.before = [&](const std::string& operation) {
        EXPECT_TRUE(Form4->Visible || operation != "open-create C1.DAT");
        is_hidden = is_hidden || (operation == "write C1.DAT" && !Form4->Visible);
    };
    save("B\xC3\xBC\rro\n", "http://new.example/\r\n");
    EXPECT_TRUE(is_hidden) << "before the record is appended";
    platform.faulty_disk.mend();
    const std::string new_list = list + "B\xC3\xBC ro\n\r\nhttp://new.example/\r\n";
    EXPECT_EQ(content_of("Cams.inf"), new_list);
    expect_selected("B\xC3\xBC ro\n");
    EXPECT_EQ(platform.focus, &Form4->Text1);
    EXPECT_EQ(platform.brought_forward.back(), &*Form3);
    refresh();
    EXPECT_EQ(platform.requests.back(), "http://new.example/");

    Form3->Command3.Click.raise();
    program.runtime.deliver([this] { Form4->Command1.Click.raise(); });
    EXPECT_EQ(content_of("Cams.inf"), new_list) << "an edit without a change";
}

TEST_F(ListWindows, KeepWhatWasTypedWhileAnotherProgramChangesTheList) {
    Form3->Command1.Click.raise();
    auto lock = make_posix_disk()->lock_folder_of("Cams.inf");
    for (int attempt = 0; attempt < 2; ++attempt) {
        save("new", "unew");
        EXPECT_EQ(Form4->Visible, lock != nullptr);
        EXPECT_EQ(platform.hints,
                  (decltype(platform.hints){
                      {&Form4->Text1, "'new' was not saved. Cams.inf is being changed by another "
                                      "program."}}));
        EXPECT_EQ(content_of("Cams.inf") == list, lock != nullptr);
        refresh();
        lock.reset();
    }
    expect_selected("new");

    Form3->Command1.Click.raise();
    platform.box_answers.emplace_back([&] {
        lock = make_posix_disk()->lock_folder_of("Cams.inf");
        return MessageBoxAnswer::yes;
    });
    save("a", "unew");
    EXPECT_TRUE(Form4->Visible) << "although the answer has hidden it";
}

TEST_F(ListWindows, OpenTheEditorWhereverTheUrlCantBeFound) {
    for (const char* content : {"b", "", "x\r\nux\r\n"}) {
        write_file("Cams.inf", content);
        Form4->Text2.Text = "kept";
        Form4->Hide();
        Form4->Label3.Caption = "0";
        program.runtime.deliver([this] { Form3->Command3.Click.raise(); });
        EXPECT_TRUE(Form4->Visible) << content;
        EXPECT_EQ(Form4->Text1.Text.get() + Form4->Text2.Text.get(), "bkept") << content;
        EXPECT_EQ(Form4->Label3.Caption.get(), "1") << content;
    }
    platform.faulty_disk.fail("read Cams.inf", EIO);
    Form3->Command3.Click.raise();
    EXPECT_EQ(platform.hints.at(0).second,
              "The address of 'b' was not read. read Cams.inf: Input/output error");
}

TEST_F(ListWindows, AskBeforeTheyOverwriteACameraAndLetNoRefreshInBetween) {
    Form3->Command1.Click.raise();
    answer(MessageBoxAnswer::no);
    save("a", "http://new.example/");
    EXPECT_EQ(platform.boxes, Lines{"292 : A cam with this description already exists! Do you "
                                    "want to overwrite it?"});
    EXPECT_TRUE(Form4->Visible);
    EXPECT_EQ(Form4->Text1.Text.get(), "a");
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_TRUE(exists("C1.DAT"));

    const auto requests = platform.requests.size();
    platform.box_answers.emplace_back([&] {
        refresh();
        return MessageBoxAnswer::yes;
    });
    save("a", "http://new.example/");
    EXPECT_EQ(platform.requests.size(), requests);
    EXPECT_FALSE(Form4->Visible);
    EXPECT_TRUE(content_of("Cams.inf").starts_with("a\r\nhttp://new.example/\r\nb\r\n"));
    expect_selected("a");
    EXPECT_EQ(Form3->List1.ListCount(), 3);
}

TEST_F(ListWindows, EditTheSelectedCameraInItsPlace) {
    const auto edit = [&](const std::string& title, const std::string& url) {
        Form3->Command3.Click.raise();
        EXPECT_TRUE(Form4->Visible);
        EXPECT_EQ(Form4->Text1.Text.get(), title);
        EXPECT_EQ(Form4->Text2.Text.get(), url);
    };
    edit("b", url_of('b'));
    save("b", url_of('b'));
    EXPECT_EQ(content_of("Cams.inf"), list);
    expect_selected("b");

    edit("b", url_of('b'));
    save("a", "unew");
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(content_of("Cams.inf"),
              "a\r\n" + url_of('a') + "\r\na\r\nunew\r\nc\r\n" + url_of('c') + "\r\n");

    write_file("Cams.inf", "x\r\nux\r\n");
    edit("a", "unew"); // The file does not know the camera: the editor keeps its URL.
    save("a", "newer");
    EXPECT_EQ(content_of("Cams.inf"), "x\r\nux\r\na\r\nnewer\r\n");
}

TEST_F(ListWindows, LeaveTheEditorByItsTwoButtonsOnly) {
    Form3->Command1.Click.raise();
    Form4->Text1.Text = "typed";
    Form4->request_close();
    EXPECT_TRUE(Form4->Visible);
    Form4->Text1.Text = "";
    save("", "http://new.example/");
    EXPECT_TRUE(Form4->Visible) << "without a title there is nothing to save";
    EXPECT_EQ(platform.hints,
              (decltype(platform.hints){{&Form4->Text1, "A camera needs a title."}}));
    Form4->Text1.Text = "typed";
    platform.focus = nullptr;
    Form4->Command2.Click.raise();
    EXPECT_FALSE(Form4->Visible);
    EXPECT_EQ(platform.focus, &Form4->Text1) << "where the next one begins";
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_EQ(Form4->Text2.Text.get(), "http://new.example/");
    EXPECT_TRUE(platform.untrapped.empty());
}

} // namespace
} // namespace lookfar::testing
