#include "desktop/desktop_fixture.h"

#include "runtime/controls/bars.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/lists.h"
#include "runtime/controls/text_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QToolButton>

#include <vector>

namespace lookfar::desktop {
namespace {

class ControlsForm : public Form {
  public:
    explicit ControlsForm(Runtime& host) : Form(host, {.Caption = "Test", .Client = {6000, 5000}}) {
        for (const char* const name : {"Alps", "Beach", "City"}) {
            List1.AddItem(name);
            Combo1.AddItem(name);
        }
    }

    // Lies in the caption of the check box.
    TextBox Text2{*this, {.Text = "60", .At = {900, 1550, 400, 200}, .HasBorder = false}};
    CheckBox Check1{*this,
                    {.Caption = "&Tick        me", .At = {100, 1500, 2000, 300}, .TabIndex = 3}};
    UpDown UpDown1{*this, {.At = {100, 2000, 300, 300}, .Value = 9, .Min = 1, .Max = 10}};
    ComboBox Combo1{*this, {.At = {100, 2500, 2000, 315}, .TabIndex = 2}};
    ListBox List1{*this, {.At = {3000, 100, 2000, 1500}, .TabIndex = 4}};
    TextBox Text1{*this,
                  {.Text = "10", .At = {100, 100, 1500, 300}, .MaxLength = 3, .TabIndex = 1}};
    CommandButton Command1{*this, {.Caption = "OK", .At = {100, 700, 900, 375}, .Default = true}};
    CommandButton Command2{*this, {.Caption = "More", .At = {1200, 700, 900, 375}}};
    StatusBar StatusBar1{*this, {.At = {0, 4700, 1500, 300}}};
};

class NativeControlsTest : public DesktopTest {
  protected:
    NativeControlsTest() { show(form); }

    ControlsForm form{runtime};
};

TEST_F(NativeControlsTest, TypingRaisesChangeAndTheHandlersOwnWriteWins) {
    std::vector<std::string> seen;
    form.Text1.Change.connect([&] {
        seen.push_back(form.Text1.Text);
        if (form.Text1.Text == std::string("1x"))
            form.Text1.Text = std::string("1");
    });
    auto& entry = widget<QLineEdit>(form.Text1);
    form.Text1.SetFocus();
    entry.selectAll();
    QTest::keyClicks(&entry, "1x2");
    EXPECT_EQ(seen, (std::vector<std::string>{"1", "1x", "1", "12"}));
    EXPECT_EQ(entry.text(), "12");
}

TEST_F(NativeControlsTest, TheKeyComesBeforeItsEffectAndAfterTheModelsValues) {
    std::vector<std::string> seen;
    form.Text1.KeyDown.connect([&](KeyCode code, short shift) {
        seen.push_back(std::to_string(static_cast<int>(code)) + "/" + std::to_string(shift) + "/" +
                       form.Text1.Text.get());
    });
    auto& entry = widget<QLineEdit>(form.Text1);
    form.Text1.SetFocus();
    form.Text1.Text = std::string("7");
    form.Text1.SelStart = 1;
    QTest::keyClick(&entry, Qt::Key_8);
    QTest::keyClick(&entry, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&entry, Qt::Key_Down);
    EXPECT_EQ(seen, (std::vector<std::string>{"56/0/7", "16/1/78", "38/1/78", "40/0/78"}));
    EXPECT_EQ(form.Text1.Text, std::string("78"));
}

TEST_F(NativeControlsTest, TheLengthLimitIsForTypingOnly) {
    auto& entry = widget<QLineEdit>(form.Text1);
    form.Text1.SetFocus();
    form.Text1.Text = std::string("12345");
    settle();
    EXPECT_EQ(entry.text(), "12345");
    QTest::keyClick(&entry, Qt::Key_End);
    QTest::keyClicks(&entry, "6");
    EXPECT_EQ(form.Text1.Text, std::string("12345"));
    for (int count = 0; count < 3; ++count)
        QTest::keyClick(&entry, Qt::Key_Backspace);
    QTest::keyClicks(&entry, "abc");
    EXPECT_EQ(form.Text1.Text, std::string("12a"));
}

TEST_F(NativeControlsTest, AClickIntoTheBoxKeepsTheSelectionThatGotFocusMade) {
    int focused = 0;
    form.Text1.GotFocus.connect([&] {
        ++focused;
        form.Text1.SelStart = 0;
        form.Text1.SelLength = 2;
    });
    widget(form.Command1).setFocus();
    auto& entry = widget<QLineEdit>(form.Text1);
    const QPoint inside(20, 10);
    QTest::mouseClick(&entry, Qt::LeftButton, {}, inside);
    EXPECT_EQ(focused, 1);
    EXPECT_EQ(entry.selectedText(), "10");
    QTest::mouseClick(&entry, Qt::LeftButton, {}, inside);
    EXPECT_FALSE(entry.hasSelectedText());
    EXPECT_EQ(form.Text1.SelLength, 0);
}

TEST_F(NativeControlsTest, BytesAreShownAsUtf8OrElseAsWindows1252) {
    auto& entry = widget<QLineEdit>(form.Text1);
    for (const std::string bytes : {"Z\xC3\xBCrich", "Z\xFCrich"}) {
        form.Text1.Text = bytes;
        form.Command1.Caption = bytes;
        form.Combo1.Clear();
        form.Combo1.AddItem(bytes);
        settle();
        EXPECT_EQ(entry.text(), QString::fromUtf8("Zürich"));
        EXPECT_EQ(widget<QPushButton>(form.Command1).text(), QString::fromUtf8("Zürich"));
        EXPECT_EQ(widget<QComboBox>(form.Combo1).itemText(0), QString::fromUtf8("Zürich"));
    }
    entry.clear();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Udiaeresis, Qt::NoModifier, QString::fromUtf8("ü"));
    QApplication::sendEvent(&entry, &press);
    EXPECT_EQ(form.Text1.Text, std::string("\xC3\xBC"));
}

TEST_F(NativeControlsTest, CheckBoxesTellAndTakeTheirValueOnce) {
    int clicks = 0;
    form.Check1.Click.connect([&] { ++clicks; });
    auto& box = widget<QCheckBox>(form.Check1);
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(6, box.height() / 2));
    EXPECT_EQ(form.Check1.Value, 1);
    EXPECT_EQ(clicks, 1);
    form.Check1.Value = 0;
    settle();
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(clicks, 2);
}

TEST_F(NativeControlsTest, ComboBoxesTellAndTakeTheirSelectionOnce) {
    std::vector<short> seen;
    form.Combo1.Click.connect([&] { seen.push_back(form.Combo1.ListIndex); });
    auto& box = widget<QComboBox>(form.Combo1);
    settle();
    EXPECT_EQ(box.count(), 3);
    EXPECT_EQ(box.currentIndex(), -1);
    form.Combo1.ListIndex = 1;
    settle();
    EXPECT_EQ(box.currentText(), "Beach");
    QTest::keyClick(&box, Qt::Key_Down);
    form.Combo1.Clear();
    settle();
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(seen, (std::vector<short>{1, 2}));
}

TEST_F(NativeControlsTest, ListBoxesTellAndTakeTheirSelectionOnce) {
    std::vector<short> seen;
    form.List1.Click.connect([&] { seen.push_back(form.List1.ListIndex); });
    auto& view = widget<QListView>(form.List1);
    view.setFocus();
    settle();
    EXPECT_EQ(form.List1.ListIndex, -1);
    const QPoint third = view.visualRect(view.model()->index(2, 0)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, third);
    QTest::keyClick(&view, Qt::Key_Up);
    form.List1.ListIndex = 0;
    settle();
    EXPECT_EQ(view.currentIndex().row(), 0);
    EXPECT_EQ(seen, (std::vector<short>{2, 1, 0}));
}

TEST_F(NativeControlsTest, AListFilledToTheBrimIsShown) {
    constexpr short brim = 32767;
    while (form.Combo1.ListCount() < brim)
        form.Combo1.AddItem("Camera");
    form.Combo1.ListIndex = brim - 1;
    settle();
    EXPECT_EQ(widget<QComboBox>(form.Combo1).count(), brim);
    EXPECT_EQ(widget<QComboBox>(form.Combo1).currentIndex(), brim - 1);
}

TEST_F(NativeControlsTest, ArrowsStepUpToTheLimit) {
    auto& arrows = widget(form.UpDown1);
    const auto buttons = arrows.findChildren<QToolButton*>();
    ASSERT_EQ(buttons.size(), 2);
    for (int count = 0; count < 3; ++count)
        QTest::mouseClick(buttons.at(0), Qt::LeftButton);
    EXPECT_EQ(form.UpDown1.Value, 10);
    QTest::mouseClick(buttons.at(1), Qt::LeftButton);
    EXPECT_EQ(form.UpDown1.Value, 9);
}

TEST_F(NativeControlsTest, EarlierControlsLieInFrontAndTabGoesByIndex) {
    const QPoint gap = widget(form.Text2).geometry().center();
    EXPECT_TRUE(widget(form.Check1).geometry().contains(gap));
    EXPECT_EQ(window(form).childAt(gap), &widget(form.Text2));
    form.Text1.SetFocus();
    QTest::keyClick(&widget(form.Text1), Qt::Key_Tab);
    EXPECT_TRUE(widget(form.Combo1).hasFocus());
    QTest::keyClick(&widget(form.Combo1), Qt::Key_Tab);
    EXPECT_TRUE(widget(form.Check1).hasFocus());
}

TEST_F(NativeControlsTest, EnterPressesTheDefaultButtonAndAltTheAccessKey) {
    int clicks = 0;
    form.Command1.Click.connect([&] { ++clicks; });
    form.Command2.Click.connect([&] { clicks += 10; });
    form.Text1.SetFocus();
    QTest::keyClick(&widget(form.Text1), Qt::Key_Return);
    QTest::keyClick(&window(form), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(comes_true([&] { return form.Check1.Value == 1; }));
    EXPECT_EQ(clicks, 1);
    widget(form.Command2).setFocus();
    QTest::keyClick(&widget(form.Command2), Qt::Key_Return);
    EXPECT_EQ(clicks, 11);
}

TEST_F(NativeControlsTest, ALongStatusTextIsCutAndWholeInItsTooltip) {
    const std::string text(60, 'w');
    form.StatusBar1.Text = text;
    settle();
    auto& label = widget<QLabel>(form.StatusBar1);
    EXPECT_LT(label.fontMetrics().horizontalAdvance(label.text()), label.width());
    EXPECT_TRUE(label.toolTip().contains(QString::fromStdString(text)));
}

TEST_F(NativeControlsTest, AHiddenWindowTakesEverythingOverWhenItIsShownAgain) {
    form.Hide();
    settle();
    form.Text1.Text = std::string("99");
    form.Command1.Visible = false;
    form.MousePointer = MousePointer::hourglass;
    settle();
    EXPECT_EQ(widget<QLineEdit>(form.Text1).text(), "10");
    show(form);
    EXPECT_EQ(widget<QLineEdit>(form.Text1).text(), "99");
    EXPECT_FALSE(widget(form.Command1).isVisible());
    EXPECT_EQ(widget(form.Text1).cursor().shape(), Qt::WaitCursor);
    form.MousePointer = MousePointer::standard;
    settle();
    EXPECT_EQ(widget(form.Text1).cursor().shape(), Qt::IBeamCursor);
}

} // namespace
} // namespace lookfar::desktop
