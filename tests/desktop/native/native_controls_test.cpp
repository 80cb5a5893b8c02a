#include "desktop/desktop_fixture.h"

#include "desktop/native/hint.h"
#include "desktop/style/colours.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace lookfar::desktop {
namespace {

class NativeControlsTest : public DesktopTest {
  protected:
    NativeControlsTest() {
        for (const char* const entry : {"Alps", "Beach", "City"}) {
            List1.AddItem(entry);
            Combo1.AddItem(entry);
        }
        show(form);
    }

    QImage image_of(ComboBox& box, short selected) {
        box.ListIndex = selected;
        let_loop_come_round();
        return widget(box).grab().toImage();
    }

    Form form{runtime, {.Caption = "Test", .Client = {6000, 5000}}};
    CheckBox Check1{form, {.Caption = "&Tick me", .At = {100, 1500, 2000, 300}}};
    UpDown UpDown1{form, {.At = {100, 2000, 300, 300}, .Value = 9, .Min = 1, .Max = 10}};
    ComboBox Combo1{form, {.At = {100, 2500, 2000, 315}, .AccessibleName = "Camera"}};
    ComboBox Flat{form,
                  {.At = {100, 3000, 2000, 315},
                   .BackColor = 0x0000C0C0,
                   .ForeColor = colour::white,
                   .Font = {.Name = "Arial", .Bold = true},
                   .IsFlat = true}};
    ListBox List1{form, {.At = {3000, 100, 2000, 1500}}};
    TextBox Text1{form, {.Text = "10", .At = {100, 100, 1500, 300}, .MaxLength = 3, .TabIndex = 2}};
    TextBox Text2{form, {.At = {100, 400, 1500, 300}, .TabIndex = 1}};
    TextBox Text3{form, {.At = {2000, 400, 900, 300}, .LineBreaks = LineBreaks::nothing}};
    CommandButton Command1{form, {.Caption = "OK", .At = {100, 700, 900, 375}, .Default = true}};
    CommandButton Command2{
        form, {.Caption = "More", .At = {1200, 700, 900, 375}, .ToolTipText = "More of it"}};
    StatusBar StatusBar1{form, {.At = {0, 4700, 1500, 300}}};
};

TEST_F(NativeControlsTest, TypingRaisesChangeAndTheHandlersOwnWriteWins) {
    std::vector<std::string> seen;
    Text1.Change.connect([&] {
        seen.push_back(Text1.Text);
        if (Text1.Text == std::string("1x"))
            Text1.Text = std::string("1");
    });
    auto& entry = widget<QLineEdit>(Text1);
    Text1.SetFocus();
    entry.selectAll();
    QTest::keyClicks(&entry, "1x2");
    EXPECT_EQ(seen, (std::vector<std::string>{"1", "1x", "1", "2"}));
    EXPECT_EQ(entry.text(), "2") << "what the handler wrote is selected";
}

TEST_F(NativeControlsTest, TheKeyComesBeforeItsEffectAndAfterTheModelsValues) {
    std::vector<std::string> seen;
    Text1.KeyDown.connect([&](KeyCode code, short shift) {
        seen.push_back(std::to_string(static_cast<int>(code)) + "/" + std::to_string(shift) + "/" +
                       Text1.Text.get());
    });
    auto& entry = widget<QLineEdit>(Text1);
    Text1.SetFocus();
    Text1.Text = std::string("7");
    Text1.SelStart = 1;
    QTest::keyClick(&entry, Qt::Key_8);
    QTest::keyClick(&entry, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&entry, Qt::Key_Down);
    QTest::keyClick(&entry, Qt::Key_F5, Qt::AltModifier);
    EXPECT_EQ(seen, (std::vector<std::string>{"0/0/7", "0/1/78", "38/1/78", "40/0/78", "0/4/78",
                                              "0/4/78"}));
    EXPECT_EQ(Text1.Text, std::string("78"));
}

TEST_F(NativeControlsTest, TheLengthLimitIsForTypingOnly) {
    auto& entry = widget<QLineEdit>(Text1);
    Text1.SetFocus();
    Text1.Text = std::string("12345");
    let_loop_come_round();
    EXPECT_EQ(entry.text(), "12345");
    QTest::keyClick(&entry, Qt::Key_End);
    QTest::keyClicks(&entry, "6");
    EXPECT_EQ(Text1.Text, std::string("12345"));
    for (int count = 0; count < 3; ++count)
        QTest::keyClick(&entry, Qt::Key_Backspace);
    QTest::keyClicks(&entry, "abc");
    EXPECT_EQ(Text1.Text, std::string("12a"));

    constexpr int max_typed = 32767;
    for (const int length : {max_typed - 1, max_typed + 1}) {
        Text2.Text = std::string(static_cast<std::size_t>(length), 'x');
        let_loop_come_round();
        QTest::keyClicks(&widget(Text2), "yy");
        EXPECT_EQ(Text2.Text.get().size(), std::max(length, max_typed));
    }
}

TEST_F(NativeControlsTest, LineBreaksStayInWhatIsWrittenOnly) {
    const std::string written = "x\ny";
    const QString pasted = "a\r\nb\nc\rd\u2028" + QString(100'000, 'z');
    QApplication::clipboard()->setText(pasted);
    for (const auto& [box, kept] : {std::pair(&Text2, "a b c d z"), std::pair(&Text3, "abcdz")}) {
        box->Text = written;
        let_loop_come_round();
        EXPECT_EQ(box->Text.get(), written);
        auto& entry = widget<QLineEdit>(*box);
        EXPECT_EQ(entry.text().toStdString(), written);
        entry.clear();
        entry.paste();
        EXPECT_TRUE(box->Text.get().starts_with(kept));
        EXPECT_LE(box->Text.get().size(), 32767U);
        EXPECT_EQ(box->SelStart, static_cast<int>(box->Text.get().size()));
    }
    List1.AddItem(written);
    let_loop_come_round();
    EXPECT_EQ(List1.List(3), written);
    const auto& list = widget<QListView>(List1);
    EXPECT_EQ(list.sizeHintForIndex(list.model()->index(3, 0)).height(),
              list.sizeHintForIndex(list.model()->index(0, 0)).height());
}

TEST_F(NativeControlsTest, AClickIntoTheBoxKeepsTheSelectionThatGotFocusMade) {
    int focused = 0;
    Text1.GotFocus.connect([&] {
        ++focused;
        Text1.SelStart = 0;
        Text1.SelLength = 2;
    });
    widget(Command1).setFocus();
    auto& entry = widget<QLineEdit>(Text1);
    const QPoint inside(20, 10);
    QTest::mouseClick(&entry, Qt::LeftButton, {}, inside);
    EXPECT_EQ(focused, 1);
    EXPECT_EQ(entry.selectedText(), "10");
    QTest::mouseClick(&entry, Qt::LeftButton, {}, inside);
    EXPECT_FALSE(entry.hasSelectedText());
    EXPECT_EQ(Text1.SelLength, 0);
    for (const auto& [reason, count] :
         {std::pair(Qt::PopupFocusReason, 1), std::pair(Qt::TabFocusReason, 2)}) {
        QFocusEvent focus(QEvent::FocusIn, reason);
        QApplication::sendEvent(&entry, &focus);
        EXPECT_EQ(focused, count) << "a menu takes the keyboard for a while only";
    }
    widget(Text2).setFocus();
    Text2.Visible = false;
    EXPECT_TRUE(comes_true([&] { return focused == 3; })) << "the next box has the keyboard";
}

TEST_F(NativeControlsTest, TheCaretRestsUntilTheNextUse) {
    const int desktops = QApplication::cursorFlashTime();
    ASSERT_GT(desktops, 0);
    for (TextBox* const box : {&Text1, &Text2}) {
        auto* const rest = widget(*box).findChild<QTimer*>();
        box->SetFocus();
        for (const char* const typed : {"1", "2"}) {
            EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
            ASSERT_TRUE(rest->isActive());
            QTimerEvent passed(rest->timerId());
            QApplication::sendEvent(rest, &passed);
            EXPECT_EQ(QApplication::cursorFlashTime(), 0);
            QTest::keyClicks(&widget(*box), typed);
        }
    }
    EXPECT_FALSE(widget(Text1).findChild<QTimer*>()->isActive()) << "another entry has the caret";
}

TEST_F(NativeControlsTest, BytesAreShownAsUtf8OrElseAsWindows1252) {
    const QString zurich = QString::fromUtf8("Zürich €");
    auto& entry = widget<QLineEdit>(Text1);
    for (const std::string bytes : {"Z\xC3\xBCrich \xE2\x82\xAC", "Z\xFCrich \x80"}) {
        Text1.Text = bytes;
        Command1.Caption = bytes;
        Combo1.Clear();
        Combo1.AddItem(bytes);
        let_loop_come_round();
        EXPECT_EQ(entry.text(), zurich);
        EXPECT_EQ(widget<QPushButton>(Command1).text(), zurich);
        EXPECT_EQ(widget<QComboBox>(Combo1).itemText(0), zurich);
    }
    entry.clear();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Udiaeresis, Qt::NoModifier, QString::fromUtf8("ü"));
    QApplication::sendEvent(&entry, &press);
    EXPECT_EQ(Text1.Text, std::string("\xC3\xBC"));
}

TEST_F(NativeControlsTest, ListsAreNamedAndTellAndTakeTheirSelectionOnce) {
    auto& box = widget<QComboBox>(Combo1);
    auto& list = widget<QListView>(List1);
    std::vector<short> seen;
    for (ListControl* const control : std::array<ListControl*, 2>{&Combo1, &List1})
        control->Click.connect([&seen, control] { seen.push_back(control->ListIndex); });
    const auto labels = QAccessible::queryAccessibleInterface(&box)->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front().first->text(QAccessible::Name), "Camera");
    EXPECT_EQ(box.count(), 3);
    EXPECT_EQ(box.currentIndex(), -1);
    Combo1.ListIndex = 1;
    let_loop_come_round();
    EXPECT_EQ(box.currentText(), "Beach");
    Combo1.AddItem("Dune");
    let_loop_come_round();
    EXPECT_EQ(box.currentText(), "Beach");
    Combo1.ListIndex = 0;
    QTest::keyClick(&box, Qt::Key_Down);
    Combo1.Clear();
    let_loop_come_round();
    EXPECT_EQ(box.count(), 0);
    constexpr short brim = 32767;
    while (Combo1.ListCount() < brim)
        Combo1.AddItem("Camera");
    Combo1.ListIndex = brim - 1;
    let_loop_come_round();
    EXPECT_EQ(box.count(), brim);
    EXPECT_EQ(box.currentIndex(), brim - 1);
    EXPECT_EQ(std::exchange(seen, {}), (std::vector<short>{1, 0, 1, brim - 1}));

    int deletions = 0;
    List1.DeleteKey.connect([&] { ++deletions; });
    for (QWidget* const widget : {static_cast<QWidget*>(&box), static_cast<QWidget*>(&list)}) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Delete);
    }
    EXPECT_EQ(deletions, 1) << "only of what has the keyboard";
    let_loop_come_round();
    EXPECT_EQ(List1.ListIndex, -1);
    const QPoint third = list.visualRect(list.model()->index(2, 0)).center();
    for (const Qt::KeyboardModifier held : {Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier})
        QTest::mouseClick(list.viewport(), Qt::LeftButton, held, third);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(2));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, third);
    const QPoint below = third + QPoint(0, 40);
    QMouseEvent drag(QEvent::MouseMove, below, list.viewport()->mapToGlobal(below), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &drag);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, below);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(2));
    QTest::keyClick(&list, Qt::Key_Up);
    List1.ListIndex = 0;
    let_loop_come_round();
    EXPECT_EQ(list.currentIndex().row(), 0);
    List1.AddItem("Dune");
    let_loop_come_round();
    EXPECT_TRUE(list.selectionModel()->isRowSelected(0));
    List1.ListIndex = -1;
    let_loop_come_round();
    EXPECT_FALSE(list.selectionModel()->hasSelection());
    EXPECT_EQ(seen, (std::vector<short>{2, 2, 2, 2, 1, 0, -1}));
}

TEST_F(NativeControlsTest, AListThatIsReplacedByAsManyEntriesShowsTheNewOnes) {
    for (const std::string kind : {"old ", "new "}) {
        for (ListControl* const control : std::array<ListControl*, 2>{&Combo1, &List1}) {
            control->Clear();
            for (const char* const entry : {"Alps", "Beach", "City"})
                control->AddItem(kind + entry);
            control->ListIndex = 1;
        }
        let_loop_come_round();
        const QImage now = pixels(form);
        EXPECT_TRUE(comes_true([&] { return on_screen(form) == now; })) << kind;
    }
}

TEST_F(NativeControlsTest, ArrowsStepWithinTheirLimitsAndAreAValueToAScreenReader) {
    const auto buttons = widget(UpDown1).findChildren<QToolButton*>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_TRUE(buttons.at(0)->autoRepeat());
    for (int count = 0; count < 3; ++count)
        QTest::mouseClick(buttons.at(0), Qt::LeftButton);
    EXPECT_EQ(UpDown1.Value, 10);
    QTest::mouseClick(buttons.at(1), Qt::LeftButton);
    EXPECT_EQ(UpDown1.Value, 9);
    auto* const value = QAccessible::queryAccessibleInterface(&widget(UpDown1))->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toInt(), 9);
    value->setCurrentValue(40);
    EXPECT_EQ(UpDown1.Value, 10);
    EXPECT_EQ(value->minimumValue().toInt(), 1);
    EXPECT_EQ(value->maximumValue().toInt(), 10);
}

TEST_F(NativeControlsTest, EnterPressesTheFocusedOrTheDefaultButtonAndAltTheAccessKey) {
    int clicks = 0;
    Command1.Click.connect([&] { clicks += 1; });
    Command2.Click.connect([&] { clicks += 10; });
    Text1.SetFocus();
    QTest::keyClick(&widget(Text1), Qt::Key_Return);
    QTest::keyClick(&window(form), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(comes_true([&] { return Check1.Value == 1; }));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(widget(Command2).toolTip(), "More of it");
    widget(Command2).setFocus();
    QTest::keyClick(&widget(Command2), Qt::Key_Return);
    EXPECT_EQ(clicks, 11);
    Command1.Visible = false;
    Text1.SetFocus();
    QTest::keyClick(&widget(Text1), Qt::Key_Return);
    EXPECT_EQ(clicks, 11) << "a hidden button is not pressed";
}

TEST_F(NativeControlsTest, AHintLiesInTheWindowTellsItsReasonAndTakesThePlaceOfTheOneBefore) {
    Text2.Top = 4700;
    for (const char* const reason : {"The first reason", "The second one"}) {
        Text2.ShowHint(std::string(300, 'x') + reason);
        std::vector<Hint*> hints;
        for (auto* const child : window(form).findChildren<QWidget*>())
            if (auto* const hint = dynamic_cast<Hint*>(child); hint && hint->isVisible())
                hints.push_back(hint);
        ASSERT_EQ(hints.size(), 1U);
        EXPECT_TRUE(hints[0]->text().endsWith(reason));
        EXPECT_TRUE(window(form).rect().contains(hints[0]->geometry()));
    }
}

TEST_F(NativeControlsTest, ARingThatIsToldFromItsGroundLiesAroundTheWidgetWithTheKeyboard) {
    for (const QColor& ground : {QColor(239, 239, 239), QColor(40, 40, 40)}) {
        QApplication::setPalette(QPalette(ground));
        let_loop_come_round();
        ASSERT_EQ(window(form).palette().color(QPalette::Window), ground);
        for (Control* const control :
             {static_cast<Control*>(&Command1), static_cast<Control*>(&Text1),
              static_cast<Control*>(&List1), static_cast<Control*>(&Check1),
              static_cast<Control*>(&Combo1)}) {
            widget(*control).setFocus();
            const QRect place = widget(*control).geometry().adjusted(-2, -2, 2, 2);
            const QImage image = window(form).grab(place).toImage();
            EXPECT_GE(contrast(image.pixelColor(0, 0), ground), 3);
            EXPECT_GE(count_of(image.pixelColor(0, 0), image),
                      4 * (place.width() + place.height() - 4));
        }
    }
    QApplication::setPalette({});
}

TEST_F(NativeControlsTest, AStatusTextIsWholeInTooltipAndDescriptionWhereItIsCut) {
    auto& label = widget<QLabel>(StatusBar1);
    const QString text = "<b>&amp;";
    const QString too_long = text + QString(60, 'w');
    for (const QString& whole : {too_long, text}) {
        StatusBar1.Text = whole.toStdString();
        let_loop_come_round();
        EXPECT_LT(label.fontMetrics().horizontalAdvance(label.text()), label.width());
        const QString told = whole == too_long ? whole : QString();
        EXPECT_EQ(label.toolTip(), told.isEmpty() ? told : Qt::convertFromPlainText(told));
        const auto* const readable = QAccessible::queryAccessibleInterface(&label);
        EXPECT_EQ(readable->text(QAccessible::Description), told);
    }
}

TEST_F(NativeControlsTest, ATextThatIsCutEndsInAnEllipsisInADropDownList) {
    constexpr QRect above_the_dots(100, 4, 8, 6);
    for (ComboBox* const box : {&Combo1, &Flat}) {
        box->AddItem("a wide and deep and high and long and broad one");
        const QImage blank = image_of(*box, -1);
        const QImage image = image_of(*box, static_cast<short>(box->ListCount() - 1));
        EXPECT_NE(image, blank);
        EXPECT_EQ(image.copy(above_the_dots), blank.copy(above_the_dots));
    }
}

TEST_F(NativeControlsTest, AFlatDropDownListHasItsOwnGroundAndARimAroundItsTexts) {
    constexpr QColor ground(192, 192, 0);
    for (int entry = 0; entry < 2; ++entry)
        Flat.AddItem("a wide and deep and high and long and broad one");
    auto& box = widget<QComboBox>(Flat);
    widget(Text1).setFocus();
    const QImage closed = image_of(Flat, 0);
    box.setFocus();
    EXPECT_GT(count_of(Qt::white, image_of(Flat, 0)), count_of(Qt::white, closed) + 200);
    box.showPopup();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(box.view()->window()));
    const auto entry = [&](int row) {
        const QRect place = box.view()->visualRect(box.model()->index(row, 0));
        return box.view()->viewport()->grab(place).toImage();
    };
    for (const QImage& image : {closed, entry(1)}) {
        EXPECT_LE(image.width(), closed.width());
        EXPECT_GT(count_of(ground, image), image.width() * image.height() / 3);
        EXPECT_GT(count_of(Qt::white, image), 30);
        EXPECT_GT(count_of(Qt::black, image), count_of(Qt::white, image));
    }
    EXPECT_EQ(count_of(ground, entry(0)), 0) << "the current one";
}

} // namespace
} // namespace lookfar::desktop
