#include "desktop/desktop_fixture.h"

#include "runtime/controls/popup_menu.h"
#include "runtime/controls/timer.h"
#include "runtime/message_box.h"
#include "runtime/window.h"

#include <QMessageBox>

namespace lookfar::desktop {
namespace {

class LoopForm : public Form {
  public:
    explicit LoopForm(Runtime& host) : Form(host, {.Caption = "Loop", .Client = {3000, 1500}}) {
        Timer1.Tick.connect([this] { ++ticks; });
        Pick.Click.connect([this] { ++picks; });
    }

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

TEST_F(MessageLoopTest, DeliverPendingRunsWhatWasPostedOrIsDueAndReturns) {
    int runs = 0;
    QTimer due;
    due.setSingleShot(true);
    due.callOnTimeout([&] { ++runs; });
    due.start(0);
    for (int count = 0; count < 100; ++count)
        platform.mailbox().post([&] { ++runs; });
    platform.deliver_pending();
    EXPECT_EQ(runs, 101);
}

TEST_F(MessageLoopTest, WhatTheUserHasDoneComesBeforeTheTicksThatAreDue) {
    show(form);
    form.Timer1.Enabled = false;
    let_loop_come_round();
    std::vector<std::string> order;
    form.MouseDown.connect([&](MouseButton) { order.emplace_back("press"); });
    platform.set_wake_handler([&] { order.emplace_back("ticks"); });
    QTimer user;
    user.setSingleShot(true);
    user.callOnTimeout([&] {
        platform.mailbox().post([&] { QTest::mousePress(&window(form), Qt::LeftButton); });
    });
    user.start(0);
    platform.wake_at(platform.now());
    EXPECT_TRUE(comes_true([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector<std::string>{"press", "ticks"}));
}

TEST_F(MessageLoopTest, MessageBoxesAnswerAsTheyAreClosedAndLetTicksComeEvenInATick) {
    using enum MessageBoxFlag;
    const struct {
        MessageBoxFlag flags;
        Qt::Key key;
        MessageBoxAnswer answer;
    } cases[] = {
        {critical, Qt::Key_Return, MessageBoxAnswer::ok},
        {information, Qt::Key_Escape, MessageBoxAnswer::ok},
        {yes_no + question, Qt::Key_Return, MessageBoxAnswer::yes},
        {yes_no + question + second_button_default, Qt::Key_Return, MessageBoxAnswer::no},
        {yes_no + question, Qt::Key_Escape, MessageBoxAnswer::no},
    };
    Qt::Key key = Qt::Key_unknown;
    form.Timer1.Tick.connect([&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        EXPECT_EQ(box->windowTitle(), "Lookfar");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        QTest::keyClick(box, key);
    });
    bool is_done = false;
    form.Timer2.Tick.connect([&] {
        form.Timer2.Enabled = false;
        for (const auto& each : cases) {
            key = each.key;
            EXPECT_EQ(runtime.MsgBox("Go <b>on</b>?", each.flags), each.answer)
                << static_cast<int>(each.flags) << key;
        }
        is_done = true;
    });
    form.Timer2.Enabled = true;
    // Without ticks the boxes would stay for ever.
    QTimer guard;
    guard.callOnTimeout(&QApplication::closeAllWindows);
    guard.start(std::chrono::seconds(20));
    EXPECT_TRUE(comes_true([&] { return is_done; }));
}

TEST_F(MessageLoopTest, APopupMenuBlocksNothingAndDeliversItsEntry) {
    show(form);
    QCursor::setPos(window(form).geometry().bottomRight() + QPoint(200, 200));
    form.MenuKey.connect([&] { form.PopupMenu(form.Menu, &form.Pick); });
    QTest::keyClick(&window(form), Qt::Key_F10, Qt::ShiftModifier);
    QMenu* const menu = window(form).popup_menu();
    ASSERT_TRUE(comes_true([&] { return menu->isVisible(); }));
    EXPECT_EQ(menu->pos(), window(form).geometry().center()) << "not where the pointer is";
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_TRUE(menu->actions().at(1)->isSeparator());
    EXPECT_EQ(menu->defaultAction(), menu->actions().at(2));
    const int before = form.ticks;
    EXPECT_TRUE(comes_true([&] { return form.ticks >= before + 3; }));
    QTest::keyClick(menu, Qt::Key_P);
    EXPECT_TRUE(comes_true([&] { return form.picks == 1; }));
    EXPECT_FALSE(menu->isVisible());
}

} // namespace
} // namespace lookfar::desktop
