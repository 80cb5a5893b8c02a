#include "support/started.h"

namespace lookfar::testing {
namespace {

using Exchange = Started<2>;

TEST_F(Exchange, GivesThePictureAsItIsShownAndTheFileThatTheCameraSent) {
    const Bytes sent = picture_file(32, 24);
    set_answer('a', sent);
    platform.set_time_of_day(std::chrono::hours(14) + seconds(202));
    Form1->Combo1.ListIndex = 0;
    refresh();
    // The next camera is asked for, and has not answered yet.
    platform.after({}, [this] { Form1->Label4.DragOut.raise(); });
    pick(1);
    Form1->CopyKey.raise();
    const auto shown = Form1->ImagNT1.Picture.get()->bytes();
    ASSERT_EQ(platform.copies.size(), 1U);
    EXPECT_EQ(platform.copies[0], Bytes(shown.begin(), shown.end()));
    ASSERT_EQ(platform.dragged.size(), 1U);
    EXPECT_EQ(platform.dragged[0].name, "a 2026-11-26 14.03.22.jpg");
    EXPECT_EQ(*platform.dragged[0].bytes, sent);

    refresh_with(Failure(28, "Timeout was reached"));
    Form1->CopyKey.raise();
    Form1->ImagNT1.DragOut.raise();
    EXPECT_EQ(platform.copies.size() + platform.dragged.size(), 2U) << "no picture is shown";
}

TEST_F(Exchange, PutsAGivenAddressIntoTheEditorAndOverwritesNothingThere) {
    const struct {
        bool is_open;
        const char *title, *url, *title_then, *url_then;
    } cases[] = {{false, "old", "http://old/", "Quay", "http://new/"},
                 {true, "", "", "Quay", "http://new/"},
                 {true, "typed", "", "typed", "http://new/"},
                 {true, "", "http://typed/", "", "http://typed/"}};
    for (const auto& [is_open, title, url, title_then, url_then] : cases) {
        Form4->Text1.Text = title;
        Form4->Text2.Text = url;
        Form4->Visible = is_open;
        Form4->Label3.Caption = editor_mode::edit;
        platform.hints.clear();
        Form1->AddressGiven.raise("http://new/", "Quay");
        EXPECT_EQ(Form4->Text1.Text.get(), title_then);
        EXPECT_EQ(Form4->Text2.Text.get(), url_then);
        EXPECT_EQ(Form4->Label3.Caption == editor_mode::edit, is_open);
        EXPECT_EQ(platform.brought_forward.back(), &*Form4);
        EXPECT_TRUE(Form3->Visible && Form3->Timer1.Enabled);
        EXPECT_EQ(platform.focus, &Form4->Text1);
        EXPECT_EQ(platform.hints.empty(), Form4->Text2.Text == "http://new/");
    }
}

TEST(OriginalFileName, IsOneForEveryFileSystem) {
    using namespace std::chrono;
    const local_seconds time = local_days(2026y / March / 5) + hours(4);
    const std::string then = " 2026-03-05 04.00.00";
    const struct {
        std::string title, begins, name;
    } cases[] = {{"Old Harbour", "\xFF\xD8\xFF", "Old Harbour" + then + ".jpg"},
                 {"../a\\b:c\n", "GIF89a", "_._a_b_c_" + then + ".gif"},
                 {"", "\x89PNG\r\n\x1A\n", "_" + then + ".png"},
                 {"caf\xE9?", "BM", "caf\xC3\xA9_" + then + ".bmp"},
                 {"*", "RIFFsizeWEBP", "_" + then + ".webp"},
                 {"x", "RIFF", "x" + then},
                 {std::string(219, 'x') + "\xC3\xA9", "", std::string(219, 'x') + then}};
    for (const auto& [title, begins, name] : cases)
        EXPECT_EQ(original_file_name(title, time, Bytes(begins.begin(), begins.end())), name);
}

} // namespace
} // namespace lookfar::testing
