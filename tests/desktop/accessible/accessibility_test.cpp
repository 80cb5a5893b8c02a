#include "desktop/program_fixture.h"

#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"
#include "demo/misbehaviour.h"
#include "pipeline/fullscreen_window.h"
#include "runtime/controls/bars.h"
#include "runtime/controls/label.h"
#include "runtime/controls/text_box.h"
#include "splash/about_window.h"
#include "splash/splash_window.h"

#include <QAccessible>
#include <QPointer>

#include <algorithm>
#include <optional>

namespace lookfar::desktop {
namespace {

/// One line of what a screen reader finds.
struct Readable {
    QAccessible::Role role;
    std::string name;
    bool operator==(const Readable&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const Readable& readable) {
        return stream << "role " << readable.role << " \"" << readable.name << '"';
    }
};

std::string name_of(QAccessibleInterface& object) {
    return object.text(QAccessible::Name).toStdString();
}

class AccessibilityTest : public ProgramTest {
  protected:
    QAccessibleInterface& root(const Form& form) {
        return *QAccessible::queryAccessibleInterface(&window(form));
    }

    /// The window itself and all of its children that can be seen.
    std::vector<Readable> read(const Form& form) {
        QAccessibleInterface& window = root(form);
        std::vector<Readable> found{{window.role(), name_of(window)}};
        for (int index = 0; index < window.childCount(); ++index) {
            QAccessibleInterface& child = *window.child(index);
            EXPECT_EQ(window.indexOfChild(&child), index);
            if (!child.state().invisible)
                found.push_back({child.role(), name_of(child)});
        }
        return found;
    }

    QAccessibleInterface& child(const Form& form, const Readable& wanted) {
        QAccessibleInterface& window = root(form);
        for (int index = 0; index < window.childCount(); ++index)
            if (Readable{window.child(index)->role(), name_of(*window.child(index))} == wanted)
                return *window.child(index);
        throw std::runtime_error("There is no " + wanted.name);
    }

    void expect_all(const Form& form, const std::vector<Readable>& wanted) {
        std::vector<Readable> missing = wanted;
        for (const Readable& found : read(form))
            if (const auto place = std::ranges::find(missing, found); place == missing.end())
                ADD_FAILURE() << form.Caption.get() << " has an extra " << found;
            else
                missing.erase(place);
        for (const Readable& each : missing)
            ADD_FAILURE() << form.Caption.get() << " lacks " << each;
    }
};

TEST_F(AccessibilityTest, EverythingInEveryWindowHasItsRoleAndName) {
    cameras->answer("/camera", demo::hang_up());
    start({"/camera"});
    settle();
    expect_all(*program.Form1, {{QAccessible::Window, "Lookfar"},
                                {QAccessible::ComboBox, "/camera"},
                                {QAccessible::Button, "Camera list"},
                                {QAccessible::Button, "Reload"},
                                {QAccessible::EditableText, "Seconds until Refresh"},
                                {QAccessible::SpinBox, "Seconds until Refresh"},
                                {QAccessible::StaticText, "Seconds until Refresh"},
                                {QAccessible::CheckBox, "Change every seconds"},
                                {QAccessible::EditableText, "Seconds until the camera changes"},
                                {QAccessible::CheckBox, "Blur Effect"},
                                {QAccessible::StatusBar, program.Form1->StatusBar1.Text},
                                {QAccessible::Graphic, "A picture is on its way"},
                                {QAccessible::StaticText, program.Form1->Label2.Caption},
                                {QAccessible::StaticText, program.Form1->Label3.Caption}});
    const auto labels =
        child(*program.Form1, {QAccessible::ComboBox, "/camera"}).relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(name_of(*labels.front().first), "Camera");
    program.Form1->Command1.Click.raise();
    settle();
    expect_all(*program.Form3, {{QAccessible::Window, "Skyglass list"},
                                {QAccessible::List, "Cameras"},
                                {QAccessible::Button, "Add..."},
                                {QAccessible::Button, "Edit..."},
                                {QAccessible::Button, "Remove"},
                                {QAccessible::Button, "Ok"}});
    program.Form3->Command1.Click.raise();
    settle();
    expect_all(*program.Form4, {{QAccessible::Window, "Skyglass"},
                                {QAccessible::StaticText, "Title"},
                                {QAccessible::EditableText, "Title"},
                                {QAccessible::StaticText, "URL"},
                                {QAccessible::EditableText, "URL"},
                                {QAccessible::Button, "Ok"},
                                {QAccessible::Button, "Cancel"}});
    program.Form1->LKF_About.Click.raise();
    settle();
    AboutWindow& about = *program.About;
    expect_all(about, {{QAccessible::Window, about.Caption},
                       {QAccessible::StaticText, "Lookfar"},
                       {QAccessible::StaticText, about.Label2.Caption},
                       {QAccessible::StaticText, about.Label3.Caption},
                       {QAccessible::StaticText, about.Label4.Caption},
                       {QAccessible::StaticText, about.Label5.Caption},
                       {QAccessible::Link, "www.lookfar.example"},
                       {QAccessible::StaticText, about.Label9.Caption},
                       {QAccessible::Link, "mail@lookfar.example"},
                       {QAccessible::Button, "Ok"}});
    program.Form1->GoToFull.Click.raise();
    settle();
    program.Form2->Label2.Visible = true; // It blinks.
    expect_all(*program.Form2, {{QAccessible::Window, "Lookfar Fullscreen Window"},
                                {QAccessible::ComboBox, "/camera"},
                                {QAccessible::Button, "Camera selection panel"},
                                {QAccessible::Graphic, "A picture is on its way"},
                                {QAccessible::StaticText, "/camera"},
                                {QAccessible::StaticText, program.Form2->Label4.Caption},
                                {QAccessible::StaticText, program.Form2->Label2.Caption},
                                {QAccessible::StaticText, program.Form2->Label3.Caption},
                                {QAccessible::Graphic, "Test card: no picture can be had"}});
}

TEST_F(AccessibilityTest, TheSplashWindowHasANameThoughNoCaption) {
    program.start();
    settle();
    SplashWindow& splash = *program.Loading;
    expect_all(splash, {{QAccessible::Window, "Lookfar is starting"},
                        {QAccessible::StaticText, splash.Label2.Caption},
                        {QAccessible::Graphic, "Lookfar"}});
}

/// What the program's windows have too, and of which tests can make more.
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
    TextBox Text1{*this, {.At = {150, 1200, 900, 300}, .TabIndex = 0, .AccessibleName = "Name"}};
    UpDown UpDown1{*this,
                   {.At = {150, 1500, 255, 225}, .Value = 9, .Min = 1, .Max = 10, .TabIndex = 3}};
};

class ReadableFormTest : public AccessibilityTest {
  protected:
    ReadableFormTest() { show(*form); }

    std::optional<ReadableForm> form{std::in_place, runtime};
};

TEST_F(ReadableFormTest, LabelsAreReadWhereAndWhileTheyAreShown) {
    const QPointer<QWidget> view = &window(*form);
    QAccessibleInterface& label = child(*form, {QAccessible::StaticText, "Seconds"});
    EXPECT_EQ(label.rect(), QRect(view->mapToGlobal(QPoint(10, 20)), QSize(100, 15)));
    EXPECT_EQ(root(*form).childAt(label.rect().center().x(), label.rect().center().y()), &label);
    ASSERT_NE(label.textInterface(), nullptr);
    EXPECT_EQ(label.textInterface()->characterCount(), 7);
    EXPECT_EQ(label.textInterface()->text(3, 7), "onds");
    form->Label1.Visible = false;
    EXPECT_TRUE(label.state().invisible);
    EXPECT_EQ(root(*form).childAt(label.rect().center().x(), label.rect().center().y()), nullptr);
    form.reset();
    EXPECT_FALSE(view && label.isValid());
}

TEST_F(ReadableFormTest, TheKeyboardReachesLinksAndButtonsThatAreDrawn) {
    int follows = 0;
    int presses = 0;
    form->Link.Click.connect([&] { ++follows; });
    form->Arrow.Click.connect([&] { ++presses; });
    EXPECT_TRUE(widget(form->Text1).hasFocus()) << "a window opens on a text box, not on a link";
    QTest::keyClick(&window(*form), Qt::Key_Tab);
    EXPECT_TRUE(widget(form->Link).hasFocus());
    QTest::keyClick(&widget(form->Link), Qt::Key_Return);
    QTest::keyClick(&widget(form->Link), Qt::Key_Tab);
    QTest::keyClick(&widget(form->Arrow), Qt::Key_Space);
    QTest::mouseClick(&window(*form), Qt::LeftButton, {}, {20, 70});
    child(*form, {QAccessible::Button, "Panel"})
        .actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(follows, 1);
    EXPECT_EQ(presses, 3);
}

TEST_F(ReadableFormTest, ArrowsAreAValueWithinTheirLimits) {
    QAccessibleInterface& arrows = child(*form, {QAccessible::SpinBox, ""});
    QAccessibleValueInterface* const value = arrows.valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toInt(), 9);
    value->setCurrentValue(40);
    EXPECT_EQ(form->UpDown1.Value, 10);
    EXPECT_EQ(value->minimumValue().toInt(), 1);
    EXPECT_EQ(value->maximumValue().toInt(), 10);
}

} // namespace
} // namespace lookfar::desktop
