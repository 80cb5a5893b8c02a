#include "desktop/desktop_fixture.h"

#include <QAccessible>

namespace lookfar::desktop {
namespace {

class ReadableForm : public Form {
  public:
    explicit ReadableForm(Runtime& host) : Form(host, {.Client = {3000, 3000}}) {}

    Label Label1{*this, {.Caption = "Seconds", .At = {150, 300, 1500, 225}}};
    Label Link{*this,
               {.Caption = "www.lookfar.example",
                .At = {150, 600, 1500, 225},
                .TabIndex = 1,
                .Role = LabelRole::link}};
    Label Arrow{*this,
                {.Caption = "4",
                 .At = {150, 900, 300, 300},
                 .TabIndex = 2,
                 .Role = LabelRole::button,
                 .AccessibleName = "Panel"}};
    TextBox Text1{*this, {.At = {150, 1200, 900, 300}}};
};

class AccessibilityTest : public DesktopTest {
  protected:
    AccessibilityTest() { show(*form); }

    QAccessibleInterface& root() { return *QAccessible::queryAccessibleInterface(&window(*form)); }

    QAccessibleInterface* child_at(const QPoint& place) {
        return root().childAt(place.x(), place.y());
    }

    QAccessibleInterface& child(QAccessible::Role role) {
        for (int index = 0; index < root().childCount(); ++index)
            if (QAccessibleInterface& found = *root().child(index);
                found.role() == role && !found.state().invisible)
                return found;
        throw std::runtime_error("The window has no such child.");
    }

    std::optional<ReadableForm> form{std::in_place, runtime};
};

TEST_F(AccessibilityTest, LabelsAreReadWhereAndWhileTheyAreShown) {
    const QPointer<QWidget> view = &window(*form);
    QAccessibleInterface& label = child(QAccessible::StaticText);
    EXPECT_EQ(root().child(root().indexOfChild(&label)), &label);
    EXPECT_EQ(label.rect(), QRect(view->mapToGlobal(QPoint(10, 20)), QSize(100, 15)));
    EXPECT_EQ(child_at(label.rect().center()), &label);
    ASSERT_NE(label.textInterface(), nullptr);
    EXPECT_EQ(label.textInterface()->characterCount(), 7);
    EXPECT_EQ(label.textInterface()->text(3, 5), "on");
    form->Label1.Visible = false;
    EXPECT_TRUE(label.state().invisible);
    EXPECT_EQ(child_at(label.rect().center()), nullptr);
    form->Label1.Visible = true;
    form->Hide();
    ASSERT_TRUE(comes_true([&] { return !view->isVisible(); }));
    EXPECT_TRUE(label.state().invisible);
    form.reset();
    EXPECT_FALSE(view && label.isValid());
}

TEST_F(AccessibilityTest, TheKeyboardReachesLinksAndButtonsThatAreDrawn) {
    int follows = 0;
    int presses = 0;
    form->Link.Click.connect([&] { ++follows; });
    form->Arrow.Click.connect([&] { ++presses; });
    EXPECT_TRUE(widget(form->Text1).hasFocus()) << "a window opens on a text box, not on a link";
    QTest::keyClick(&window(*form), Qt::Key_Tab);
    QTest::keyClick(&widget(form->Link), Qt::Key_Down);
    EXPECT_TRUE(widget(form->Link).hasFocus());
    QTest::keyClick(&widget(form->Link), Qt::Key_Return);
    QTest::keyClick(&widget(form->Arrow), Qt::Key_Space);
    constexpr QPoint on_arrow(20, 70);
    EXPECT_EQ(window(*form).childAt(on_arrow), nullptr) << "the mouse goes to the label itself";
    QTest::mouseClick(&window(*form), Qt::LeftButton, {}, on_arrow);
    child(QAccessible::Button)
        .actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(follows, 1);
    EXPECT_EQ(presses, 3);
}

} // namespace
} // namespace lookfar::desktop
