#include "desktop/desktop_fixture.h"

#include "runtime/controls/buttons.h"
#include "runtime/controls/popup_menu.h"
#include "runtime/controls/timer.h"
#include "runtime/message_box.h"
#include "runtime/window.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <optional>
#include <thread>

namespace lookfar::desktop {
namespace {

using std::chrono::milliseconds;

class LoopForm : public Form {
  public:
    explicit LoopForm(Runtime& host) : Form(host, {.Caption = "Loop", .Client = {3000, 1500}}) {
        Timer1.Tick.connect([this] { ++ticks; });
        Pick.Click.connect([this] { ++picks; });
    }

    CommandButton Command1{*this, {.Caption = "&Go", .At = {300, 300, 1200, 375}}};
    Timer Timer1{*this, {.Enabled = true, .Interval = 10}};
    Timer Timer2{*this, {.Enabled = false, .Interval = 5}};
    MenuItem Pick{*this, "&Pick"};
    MenuItem Rule{*this, "-"};
    MenuItem Other{*this, "&Other"};
    lookfar::PopupMenu Menu{*this, {&Other, &Rule, &Pick}};
    int ticks = 0;
    int picks = 0;
};

class MessageLoopTest : public DesktopTest {
  protected:
    Window<LoopForm> slot{runtime, [this] { return std::make_unique<LoopForm>(runtime); }};
    LoopForm& form = *slot;
};

TEST_F(MessageLoopTest, TicksComeWhileAHandlerWaits) {
    const auto deadline = platform.now() + std::chrono::seconds(5);
    QTimer waker;
    waker.start(milliseconds(100));
    platform.wait_until([&] { return form.ticks >= 3 || platform.now() > deadline; });
    EXPECT_GE(form.ticks, 3);
}

TEST_F(MessageLoopTest, TicksComeUnderAMessageBoxThatIsOpenedByATick) {
    show(form);
    int ticks_before = 0;
    std::optional<MessageBoxAnswer> answer;
    form.Timer2.Tick.connect([&] {
        form.Timer2.Enabled = false;
        ticks_before = form.ticks;
        answer = runtime.MsgBox("Go <b>on</b>?", MessageBoxFlag::yes_no);
    });
    form.Timer1.Tick.connect([&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || form.ticks < ticks_before + 3)
            return;
        EXPECT_EQ(box->windowTitle(), "Lookfar");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        box->button(QMessageBox::Yes)->click();
    });
    // Without a tick the box would stay for ever.
    QTimer::singleShot(std::chrono::seconds(5), QApplication::instance(), [] {
        if (QWidget* const box = QApplication::activeModalWidget())
            box->close();
    });
    form.Timer2.Enabled = true;
    EXPECT_TRUE(comes_true([&] { return answer.has_value(); }));
    EXPECT_EQ(answer, MessageBoxAnswer::yes);
}

TEST_F(MessageLoopTest, MessageBoxesAnswerAsTheyAreClosed) {
    struct Case {
        MessageBoxFlag flags;
        Qt::Key key;
        MessageBoxAnswer answer;
    };
    using enum MessageBoxFlag;
    const std::array cases{
        Case{critical, Qt::Key_Return, MessageBoxAnswer::ok},
        Case{information, Qt::Key_Escape, MessageBoxAnswer::ok},
        Case{yes_no + question, Qt::Key_Return, MessageBoxAnswer::yes},
        Case{yes_no + question + second_button_default, Qt::Key_Return, MessageBoxAnswer::no},
        Case{yes_no + question, Qt::Key_Escape, MessageBoxAnswer::no},
    };
    for (const Case& each : cases) {
        QTimer presser;
        presser.callOnTimeout([&] {
            if (QWidget* const box = QApplication::activeModalWidget())
                QTest::keyClick(box, each.key);
        });
        presser.start(milliseconds(50));
        EXPECT_EQ(runtime.MsgBox("Text", each.flags), each.answer)
            << static_cast<int>(each.flags) << each.key;
    }
}

TEST_F(MessageLoopTest, APopupMenuBlocksNothingAndDeliversItsEntry) {
    show(form);
    form.PopupMenu(form.Menu, &form.Pick);
    QMenu* const menu = window(form).popup_menu();
    ASSERT_TRUE(comes_true([&] { return menu->isVisible(); }));
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_TRUE(menu->actions().at(1)->isSeparator());
    EXPECT_EQ(menu->defaultAction(), menu->actions().at(2));
    const int before = form.ticks;
    EXPECT_TRUE(comes_true([&] { return form.ticks >= before + 3; }));
    QTest::keyClick(menu, Qt::Key_P);
    EXPECT_TRUE(comes_true([&] { return form.picks == 1; }));
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(MessageLoopTest, WorkPostedFromAnotherThreadWakesAWaitingHandler) {
    bool is_done = false;
    const auto main_thread = std::this_thread::get_id();
    std::thread::id ran_on;
    std::thread poster([&] {
        std::this_thread::sleep_for(milliseconds(50));
        platform.post([&] {
            ran_on = std::this_thread::get_id();
            is_done = true;
        });
    });
    platform.wait_until([&] { return is_done; });
    poster.join();
    EXPECT_EQ(ran_on, main_thread);
}

TEST_F(MessageLoopTest, DeliverPendingRunsWhatWasPostedAndReturns) {
    int runs = 0;
    for (int count = 0; count < 100; ++count)
        platform.post([&] { ++runs; });
    platform.deliver_pending();
    EXPECT_EQ(runs, 100);
}

TEST_F(MessageLoopTest, AFailingHandlerEndsAloneAndWhatItDidIsShown) {
    form.Command1.Click.connect([&] {
        form.Command1.Caption = std::string("Gone");
        throw Failure(1, "failed on purpose");
    });
    show(form);
    auto& button = widget<QPushButton>(form.Command1);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.text(), "Gone");
    const int before = form.ticks;
    EXPECT_TRUE(comes_true([&] { return form.ticks > before; }));
}

TEST_F(MessageLoopTest, ACancelledCloseKeepsTheWindowAndAnotherOneTakesItAway) {
    bool keep = true;
    int requests = 0;
    form.QueryUnload.connect([&](short& cancel, short) {
        ++requests;
        cancel = keep ? 1 : 0;
    });
    show(form);
    const QPointer<QWidget> view = &window(form);
    view->close();
    settle();
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(view && view->isVisible());
    keep = false;
    view->close();
    EXPECT_FALSE(slot.is_loaded());
    settle();
    EXPECT_EQ(requests, 2);
    EXPECT_TRUE(view.isNull());
}

TEST_F(MessageLoopTest, AButtonMayUnloadItsOwnWindow) {
    form.Command1.Click.connect([&] { form.request_close(); });
    show(form);
    const QPointer<QWidget> button = &widget(form.Command1);
    QTest::mouseClick(button, Qt::LeftButton);
    settle();
    EXPECT_FALSE(slot.is_loaded());
    EXPECT_TRUE(button.isNull());
}

} // namespace
} // namespace lookfar::desktop
