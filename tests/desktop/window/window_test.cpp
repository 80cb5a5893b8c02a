#include "desktop/desktop_fixture.h"

#include "desktop/style/geometry.h"
#include "runtime/window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QMimeData>

#include <cstdlib>
#include <thread>

namespace lookfar::desktop {
namespace {

class SmallForm : public Form {
  public:
    explicit SmallForm(Runtime& host) : Form(host, {.Client = {3000, 1500}}) {
        List1.AddItem("Camera");
        AddressGiven.connect([this](auto&, auto&) { ++given; });
    }

    CommandButton Command1{*this, {.Caption = "Close", .At = {300, 300, 1200, 375}, .TabIndex = 1}};
    TextBox Text1{*this, {.Text = "10", .At = {300, 900, 1200, 300}, .TabIndex = 2}};
    UpDown UpDown1{*this, {.At = {1800, 900, 300, 300}, .Max = 10}};
    ListBox List1{*this, {.At = {2200, 300, 700, 900}}};
    int given = 0;
};

/// Whether the window manager keeps a window on the screen.
bool is_managed(const QWidget& window) {
    const std::string state = "xprop -id " + std::to_string(window.winId()) + " WM_STATE";
    return std::system((state + " | grep -q Normal").c_str()) == 0;
}

void set_up_screens(const std::string& changes) {
    EXPECT_EQ(std::system(("xrandr " + changes).c_str()), 0) << changes;
}

/// Two screens of different size, side by side, in place of the virtual display's one.
struct TwoScreens {
    TwoScreens() {
        set_up_screens("--setmonitor left 500/1x700/1+0+0 screen");
        set_up_screens("--setmonitor right 400/1x600/1+500+0 none");
    }
    TwoScreens(const TwoScreens&) = delete;
    TwoScreens& operator=(const TwoScreens&) = delete;
    ~TwoScreens() {
        for (const char* const screen : {"left", "right"})
            std::system((std::string("xrandr --delmonitor ") + screen).c_str());
    }
};

class TwoScreensTest : TwoScreens, public DesktopTest {};

TEST_F(TwoScreensTest, AreTheOneWhereTheMainWindowStands) {
    Form main(runtime, {.Client = {3000, 1500}, .IsMainWindow = true});
    show(main);
    EXPECT_EQ(runtime.Screen().Width, 7500.0F);
    int changes = 0;
    main.ScreenChange.connect([&] { ++changes; });
    window(main).move(550, 60);
    ASSERT_TRUE(comes_true([&] { return main.Left == 750.0F && main.Top == 900.0F; }));
    EXPECT_EQ(runtime.Screen(), (Size{6000, 9000}));
    for (QScreen* const screen : QGuiApplication::screens())
        if (screen != window(main).screen())
            emit screen->geometryChanged(screen->geometry());
    EXPECT_EQ(changes, 1);

    Form cover(runtime, {.Client = runtime.Screen(), .Border = FormBorder::none});
    main.Hide();
    show(cover);
    EXPECT_TRUE(comes_true([&] { return window(cover).geometry() == QRect(500, 0, 400, 600); }));
    cover.Hide();
    show(main);
    EXPECT_TRUE(comes_true([&] { return window(main).pos() == QPoint(550, 60); }));
    main.Hide();
    ASSERT_TRUE(comes_true([&] { return !window(main).isVisible(); }));
    EXPECT_EQ(runtime.Screen(), (Size{6000, 9000})) << "where it stood when it was hidden";
}

TEST_F(TwoScreensTest, KeepTheMainWindowWithinReachWhenTheyMoveOrShrinkOrGo) {
    Form main(runtime, {.Client = {3000, 1500}, .IsMainWindow = true});
    show(main);
    window(main).move(620, 420);
    ASSERT_TRUE(comes_true([&] { return main.Left == 1800.0F && main.Top == 6300.0F; }));
    const std::pair<std::string, QRect> none("--delmonitor left", {0, 0, 1280, 1024});
    const std::vector<std::pair<std::string, QRect>> changes[] = {
        {{"--delmonitor right", {0, 0, 500, 700}}},
        {none, {"--setmonitor left 200/1x150/1+0+0 screen", {0, 0, 200, 150}}},
        {none, {"--setmonitor left 400/1x300/1+300+200 screen", {300, 200, 400, 300}}},
    };
    for (const auto& steps : changes) {
        main.Hide();
        ASSERT_TRUE(comes_true([&] { return !is_managed(window(main)); }));
        for (const auto& [step, screen] : steps) {
            set_up_screens(step);
            ASSERT_TRUE(comes_true([&only_screen = screen] {
                return QGuiApplication::screens().size() == 1 &&
                       QGuiApplication::primaryScreen()->geometry() == only_screen;
            })) << step;
        }
        main.Show();
        platform.windows_on_screen().synchronise();
        const QRect wanted = pixel_rectangle({main.Left, main.Top, main.Width, main.Height});
        const QRect& screen = steps.back().second;
        EXPECT_TRUE(QRect(QPoint(), screen.size()).contains(wanted.center()))
            << wanted.x() << " " << wanted.y();
        EXPECT_TRUE(comes_true([&] { return screen.intersects(window(main).geometry()); }));
    }
}

class WindowTest : public DesktopTest {
  protected:
    WindowTest() { show(form); }

    Window<SmallForm> slot{runtime, [this] { return std::make_unique<SmallForm>(runtime); }};
    SmallForm& form = *slot;
};

TEST_F(WindowTest, StaysWhenItsCloseIsCancelledAndGoesByAButtonOfItsOwn) {
    bool keep = true;
    int requests = 0;
    form.QueryUnload.connect([&](short& cancel, short) {
        ++requests;
        cancel = keep ? 1 : 0;
    });
    const QPointer<QWidget> view = &window(form);
    view->close();
    let_loop_come_round();
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(view && view->isVisible());
    keep = false;
    form.Command1.Click.connect([&] { form.request_close(); });
    QTest::mouseClick(&widget(form.Command1), Qt::LeftButton);
    EXPECT_FALSE(slot.is_loaded());
    EXPECT_TRUE(comes_true([&] { return view.isNull(); }));
    EXPECT_EQ(requests, 2);
}

TEST_F(WindowTest, LeavesNoWayFromItsWidgetsToControlsThatAreGone) {
    int told = 0;
    for (Event<>* const event : {&form.Command1.Click, &form.Text1.Change, &form.UpDown1.Change})
        event->connect([&] { ++told; });
    auto& entry = widget<QLineEdit>(form.Text1);
    const auto buttons = window(form).findChildren<QAbstractButton*>();
    ASSERT_EQ(buttons.size(), 3);
    const QAbstractItemModel& entries = *widget<QListView>(form.List1).model();
    ASSERT_EQ(entries.rowCount(), 1);
    window(form).close();
    ASSERT_FALSE(slot.is_loaded());
    for (QAbstractButton* const button : buttons)
        button->click();
    entry.setText("7");
    EXPECT_EQ(told, 0);
    EXPECT_EQ(entries.rowCount(), 0);
}

TEST_F(WindowTest, HearsNoPressOnAWidgetOfItsOwn) {
    int presses = 0;
    form.MouseDown.connect([&](MouseButton) { ++presses; });
    QTest::mouseClick(&widget(form.Command1), Qt::RightButton);
    EXPECT_EQ(presses, 0);
}

TEST_F(WindowTest, KeepsItsSizeAndTellsWhereItWasMoved) {
    WindowView& view = window(form);
    EXPECT_EQ(view.size(), QSize(200, 100));
    EXPECT_EQ(view.minimumSize(), view.maximumSize());
    const auto has_frame = [&] { return view.frameGeometry().height() > view.height(); };
    ASSERT_TRUE(comes_true(has_frame));
    form.Left = 1500;
    form.Top = 3000;
    ASSERT_TRUE(comes_true([&] { return view.pos() == QPoint(100, 200); }));
    // Its centre may lie outside of the screen.
    for (const QPoint place : {QPoint(40, 60), QPoint(-130, 60)}) {
        view.move(place);
        EXPECT_TRUE(comes_true(
            [&] { return form.Left == to_twips(place.x()) && form.Top == to_twips(place.y()); }));
    }
    form.Hide();
    let_loop_come_round();
    form.Show();
    EXPECT_EQ(form.Left, to_twips(-130));
    EXPECT_EQ(form.Top, to_twips(60));
}

TEST_F(WindowTest, ComesBackAndForwardWhenItIsShownWhileItIsMinimised) {
    window(form).showMinimized();
    ASSERT_TRUE(comes_true([&] { return form.WindowState == WindowState::minimised; }));
    int resizes = 0;
    form.Resize.connect([&] { ++resizes; });
    show(form);
    EXPECT_FALSE(window(form).isMinimized());
    EXPECT_EQ(form.WindowState, WindowState::normal);
    EXPECT_EQ(resizes, 0);
}

TEST_F(WindowTest, IsCentredWithItsFrame) {
    Form centred(runtime, {.Client = {3000, 1500}, .CentredOnScreen = true});
    show(centred);
    const QPoint centre = window(centred).screen()->geometry().center();
    EXPECT_TRUE(comes_true([&] {
        return (window(centred).frameGeometry().center() - centre).manhattanLength() <= 1;
    }));
    EXPECT_GT(window(centred).frameGeometry().height(), 100) << "the window has a frame";
}

TEST_F(WindowTest, HidesThePointerAtRestWhileItCoversTheScreenAndNothingIsOpen) {
    const auto is_hidden = [] {
        const QCursor* const cursor = QGuiApplication::overrideCursor();
        return cursor && cursor->shape() == Qt::BlankCursor;
    };
    Form cover(runtime, {.Client = runtime.Screen(), .Border = FormBorder::none});
    ComboBox selector(cover, {.At = {600, 600, 3000, 300}});
    selector.AddItem("Camera");
    show(cover);
    EXPECT_TRUE(comes_true(is_hidden));
    auto& box = widget<QComboBox>(selector);
    QMouseEvent by_qt(QEvent::MouseMove, {}, {}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &by_qt);
    EXPECT_TRUE(is_hidden()) << "the user has not moved the mouse";
    QTest::mouseMove(window(cover).windowHandle(), QPoint(300, 300));
    let_loop_come_round();
    EXPECT_FALSE(is_hidden());

    box.showPopup();
    QTimer longer_than_rest;
    longer_than_rest.setSingleShot(true);
    longer_than_rest.start(std::chrono::milliseconds(3500));
    EXPECT_TRUE(comes_true([&] { return is_hidden() || !longer_than_rest.isActive(); }));
    EXPECT_FALSE(is_hidden());
    box.hidePopup();
    EXPECT_TRUE(comes_true(is_hidden));
    cover.MousePointer = MousePointer::hourglass;
    let_loop_come_round();
    EXPECT_TRUE(is_hidden());
    cover.Hide();
    show(form);
    EXPECT_FALSE(is_hidden());
}

TEST_F(WindowTest, TakesALinkAsItsGiverAllowsAndNoneUnderAQuestion) {
    QMimeData link;
    link.setText("http://a.example/");
    const auto enter = [&](Qt::DropActions offered) {
        QDragEnterEvent drag({}, offered, &link, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(form), &drag);
        return drag.isAccepted();
    };
    const Qt::DropActions both = Qt::CopyAction | Qt::LinkAction;
    for (const auto& [offered, done] :
         {std::pair(both, Qt::CopyAction),
          std::pair(Qt::DropActions(Qt::CopyAction), Qt::CopyAction),
          std::pair(Qt::DropActions(Qt::LinkAction), Qt::LinkAction)}) {
        EXPECT_TRUE(enter(offered));
        QDropEvent drop({}, offered, &link, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(form), &drop);
        EXPECT_EQ(drop.dropAction(), done);
    }
    EXPECT_EQ(form.given, 3);
    QDialog question(&window(form));
    question.setModal(true);
    question.show();
    EXPECT_FALSE(enter(both));
}

TEST_F(WindowTest, StaysUntilItsSuccessorIsPaintedAndHearsNothingMeanwhile) {
    int heard = 0;
    form.Command1.Click.connect([&] { ++heard; });
    form.QueryUnload.connect([&](short&, short) { ++heard; });
    Form successor(runtime, {.Client = {3000, 1500}});
    form.Hide();
    successor.Show();
    ASSERT_TRUE(window(form).isVisible());
    QTest::mouseClick(&widget(form.Command1), Qt::LeftButton);
    window(form).close();
    EXPECT_EQ(heard, 0);
    EXPECT_TRUE(comes_true([&] { return !window(form).isVisible(); }));
    EXPECT_EQ(window(form).windowIcon().availableSizes().size(), 8);
    EXPECT_EQ(window(successor).windowIcon().availableSizes().size(), 8);
    successor.Hide();
    let_loop_come_round();
    EXPECT_FALSE(window(successor).isVisible()) << "nobody comes after it";
}

TEST_F(WindowTest, IsSeenBeforeItIsPainted) {
    Form red(runtime, {.Client = {3000, 1500}, .BackColor = 0x000000FF});
    Label label(red, {.At = {0, 0, 3000, 600}, .BackColor = 0x0000FF00});
    red.Show();
    ASSERT_TRUE(comes_true([&] { return window(red).isVisible(); }));
    // The program paints nothing as long as its message loop stands still.
    const auto is_seen = [&] {
        return on_screen(red, 100, 20) == 0x00FF00U && on_screen(red, 100, 80) == 0xFF0000U;
    };
    for (int attempt = 0; attempt < 5000 && !is_seen(); ++attempt)
        std::this_thread::yield();
    EXPECT_TRUE(is_seen());
    int seen = 0;
    red.Seen.connect([&] { ++seen; });
    EXPECT_TRUE(comes_true([&] { return seen == 1; }));
    EXPECT_FALSE(window(red).is_coming_up());
}

TEST_F(WindowTest, StaysUntilTheOneThatComesForwardHasTheKeyboard) {
    Form other(runtime, {.Client = {3000, 1500}});
    show(other);
    show(form);
    form.Hide();
    other.Show();
    EXPECT_TRUE(window(form).isVisible());
    EXPECT_TRUE(comes_true([&] { return !window(form).isVisible(); }));
    EXPECT_TRUE(window(other).isActiveWindow());
}

TEST_F(WindowTest, KeepsOutOfTheTaskBarWithoutStandingAboveAllOthers) {
    Form small(runtime, {.Client = {3000, 1500}, .ShowInTaskbar = false});
    for (int time = 0; time < 2; ++time) {
        show(small);
        const std::string properties = "xprop -id " + std::to_string(window(small).winId()) +
                                       " _NET_WM_STATE WM_TRANSIENT_FOR";
        EXPECT_EQ(std::system((properties + " | grep -q SKIP_TASKBAR").c_str()), 0);
        EXPECT_NE(std::system((properties + " | grep -q 'window id'").c_str()), 0);
        small.Hide();
        // The window manager takes the properties away.
        EXPECT_TRUE(comes_true(
            [&] { return std::system((properties + " | grep -q SKIP_TASKBAR").c_str()) != 0; }));
    }
}

TEST_F(WindowTest, TakesEverythingOverWhenItIsShownAgain) {
    const auto& entry = widget<QLineEdit>(form.Text1);
    form.Hide();
    form.Text1.Text = std::string("99");
    form.Command1.Visible = false;
    form.MousePointer = MousePointer::hourglass;
    form.Text1.SetFocus();
    let_loop_come_round();
    EXPECT_EQ(entry.text(), "10") << "a hidden window follows nothing";
    show(form);
    EXPECT_EQ(entry.text(), "99");
    EXPECT_EQ(window(form).focusWidget(), &entry) << "although the list comes first";
    EXPECT_FALSE(widget(form.Command1).isVisible());
    EXPECT_EQ(entry.cursor().shape(), Qt::WaitCursor);
    form.MousePointer = MousePointer::standard;
    let_loop_come_round();
    EXPECT_EQ(entry.cursor().shape(), Qt::IBeamCursor);
}

} // namespace
} // namespace lookfar::desktop
