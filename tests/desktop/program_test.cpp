#include "desktop/program_fixture.h"

#include "acquisition/main_window.h"
#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"
#include "pipeline/fullscreen_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTimer>

#include <chrono>

namespace lookfar::desktop {
namespace {

using std::chrono::milliseconds;

TEST_F(ProgramTest, TicksOfEveryTimerComeWhileASlowCameraIsFetched) {
    cameras->answer("/slow", picture(64, 48));
    start({"/slow", "/other"});
    program.Form1->Combo1.Text = std::string("/slow");
    cameras->answer("/slow", picture(320, 240, milliseconds(1500)));
    int refreshes = 0;
    int rotations = 0;
    int watches = 0;
    int follows = 0;
    program.Form1->Timer1.Tick.connect([&] { ++refreshes; });
    program.Form1->Timer2.Tick.connect([&] { ++rotations; });
    program.Form2->Timer1.Tick.connect([&] { ++watches; });
    program.Form2->Timer3.Tick.connect([&] { ++follows; });
    program.Form1->Timer1.Interval = 200;
    program.Form1->Timer2.Interval = 300;
    program.Form1->Timer2.Enabled = true;
    const auto requests = cameras->requests();
    reload();
    program.Form1->Timer1.Interval = 60000;
    EXPECT_GE(refreshes, 3);
    EXPECT_GE(rotations, 3);
    EXPECT_GE(watches, 1);
    EXPECT_GE(follows, 3);
    EXPECT_EQ(program.Form1->ImagNT1.Picture.get()->width(), 320);
    EXPECT_EQ(cameras->requests(), requests + 1) << "the refreshes inside were turned away";
}

TEST_F(ProgramTest, SendsOneRequestARefreshOverAKeptConnection) {
    cameras->answer("/camera", picture(320, 240));
    start({"/camera"});
    for (int count = 0; count < 5; ++count)
        reload();
    EXPECT_EQ(cameras->requests(), 6U);
    EXPECT_EQ(cameras->connections(), 1U);
}

TEST_F(ProgramTest, TakesWhatIsTypedAndPicked) {
    cameras->answer("/a", picture(32, 24));
    cameras->answer("/b", picture(48, 24));
    start({"/a", "/b"});
    MainWindow& form = *program.Form1;
    auto& seconds = widget<QLineEdit>(form.Text1);
    QTest::mouseClick(&seconds, Qt::LeftButton);
    QTest::keyClicks(&seconds, "7");
    EXPECT_EQ(form.Timer1.Interval, 7000) << "the whole text was selected";
    QTest::keyClick(&seconds, Qt::Key_Up);
    EXPECT_EQ(seconds.text(), "8");
    QTest::keyClick(&seconds, Qt::Key_Backspace);
    EXPECT_EQ(seconds.text(), "1");

    auto& selector = widget<QComboBox>(form.Combo1);
    selector.setFocus();
    QTest::keyClick(&selector, Qt::Key_Home);
    QTest::keyClick(&selector, Qt::Key_End);
    EXPECT_EQ(program.Form2->Combo1.Text.get(), "/b");
    reload();
    EXPECT_EQ(form.ImagNT1.Picture.get()->width(), 48);
}

TEST_F(ProgramTest, PutsTheFilteredBytesOnTheScreenAtNaturalSize) {
    cameras->answer("/camera", picture(321, 241));
    start({"/camera"});
    MainWindow& form = *program.Form1;
    ASSERT_TRUE(comes_true([&] { return program.Form2->Label8.Caption == "1"; }));
    settle();
    const QImage screen = pixels(form);
    const auto bytes = form.ImagNT1.Picture.get()->bytes();
    const std::ptrdiff_t stride = form.ImagNT1.Picture.get()->stride();
    constexpr int left = 4;
    constexpr int top = 8;
    // The frame lies over the outermost pixels.
    for (int y = 1; y < 240; ++y)
        for (int x = 1; x < 320; ++x) {
            const auto* const expected = bytes.data() + y * stride + std::ptrdiff_t{3} * x;
            ASSERT_EQ(screen.pixel(left + x, top + y), qRgb(expected[0], expected[1], expected[2]))
                << x << " " << y;
        }
}

TEST_F(ProgramTest, GivesTheKeyboardToTheTitleAtEveryOpeningOfTheEditor) {
    cameras->answer("/a", picture(32, 24));
    start({"/a"});
    const auto add = [this](const char* title) {
        QTest::mouseClick(&widget(program.Form3->Command1), Qt::LeftButton);
        auto& editor = window(*program.Form4);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
        EXPECT_EQ(QApplication::focusWidget(), &widget(program.Form4->Text1));
        QTest::keyClicks(QApplication::focusWidget(), title);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "http://127.0.0.1/");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(editor.isVisible());
        settle();
    };
    QTest::mouseClick(&widget(program.Form1->Command1), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window(*program.Form3)));
    add("B");
    QTimer answer;
    answer.callOnTimeout([] {
        if (QWidget* const box = QApplication::activeModalWidget())
            QTest::keyClick(box, Qt::Key_Y, Qt::AltModifier);
    });
    answer.start(milliseconds(50));
    add("B");
    add("C");
    EXPECT_EQ(lookfar::testing::content_of("Cams.inf"),
              "/a\r\n" + cameras->url("/a") +
                  "\r\nB\r\nhttp://127.0.0.1/\r\nC\r\nhttp://127.0.0.1/\r\n");
    EXPECT_EQ(program.Form1->Combo1.Text.get(), "C");
}

} // namespace
} // namespace lookfar::desktop
