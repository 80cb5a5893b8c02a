#include "desktop/desktop_fixture.h"

#include "runtime/controls/images.h"
#include "runtime/controls/shapes.h"

#include <QHelpEvent>
#include <QToolTip>

namespace lookfar::desktop {
namespace {

using Log = std::vector<std::string>;

class MouseTest : public DesktopTest {
  protected:
    MouseTest() {
        log_all("label", Label1);
        log_all("image", Image1);
        log_all("form", form);
        Button.Click.connect([this] { log.emplace_back("button click"); });
        show(form);
    }

    void log_all(const std::string& control, MouseEvents& events) {
        events.Click.connect([this, control] { log.push_back(control + " click"); });
        events.DblClick.connect([this, control] { log.push_back(control + " double"); });
        events.MouseDown.connect([this, control](MouseButton button) {
            log.push_back(control + " down " + std::to_string(static_cast<int>(button)));
        });
        events.MouseMove.connect([this, control] { moved.push_back(control); });
    }

    static constexpr QPoint on_label{50, 50};
    static constexpr QPoint on_image{150, 50};
    static constexpr QPoint on_form{50, 150};
    static constexpr QPoint on_button{150, 150};

    void move(const QPoint& point, Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, point, window(form).mapToGlobal(point), Qt::NoButton,
                          held, Qt::NoModifier);
        QApplication::sendEvent(&window(form), &event);
    }

    Log take_log() { return std::exchange(log, {}); }

    Log click(Qt::MouseButton button, const QPoint& point) {
        QTest::mouseClick(&window(form), button, {}, point);
        return take_log();
    }

    Form form{runtime, {.Client = {3000, 3000}}};
    Label Button{form, {.At = {1500, 1500, 1500, 1500}}};
    Shape Cover{form, {.At = {0, 0, 3000, 3000}}};
    Label Label1{
        form, {.At = {0, 0, 1500, 1500}, .Back = BackStyle::transparent, .ToolTipText = "Label"}};
    Image Image1{form, {.At = {0, 0, 3000, 1500}, .Stretch = true, .ToolTipText = "Image"}};
    Log log;
    Log moved;
};

TEST_F(MouseTest, GoesToTheFrontmostControlThatTakesIt) {
    EXPECT_EQ(click(Qt::LeftButton, on_label), (Log{"label down 1", "label click"}));
    EXPECT_EQ(click(Qt::RightButton, on_label), (Log{"label down 2"}));
    EXPECT_EQ(click(Qt::LeftButton, on_image), (Log{"image down 1", "image click"}));
    EXPECT_EQ(click(Qt::MiddleButton, on_form), (Log{"form down 4"}));
    EXPECT_EQ(click(Qt::LeftButton, on_form), (Log{"form down 1", "form click"}));
    Label1.Visible = false;
    EXPECT_EQ(click(Qt::RightButton, on_label), (Log{"image down 2"}));
}

TEST_F(MouseTest, ClicksTwiceForADoubleClickAndNotAtAllWhereItIsDraggedAway) {
    QTest::mouseClick(&window(form), Qt::LeftButton, {}, on_label);
    QTest::mouseDClick(&window(form), Qt::LeftButton, {}, on_label);
    EXPECT_EQ(take_log().back(), "label double");
    QTest::mousePress(&window(form), Qt::LeftButton, {}, on_label);
    QTest::mouseRelease(&window(form), Qt::LeftButton, {}, on_image);
    EXPECT_EQ(take_log(), (Log{"label down 1"}));
    Image1.DragOut.connect([this] { log.emplace_back("image drag"); });
    for (const int distance : {1, 20}) {
        QTest::mousePress(&window(form), Qt::LeftButton, {}, on_image);
        for (int move = 0; move < 2; ++move)
            QTest::mouseMove(&window(form), on_image + QPoint(distance, move));
        QTest::mouseRelease(&window(form), Qt::LeftButton, {}, on_image);
        EXPECT_EQ(take_log(), (Log{"image down 1", distance == 1 ? "image click" : "image drag"}));
    }
    // What is held after a release was pressed elsewhere, and what is not held was let go there.
    for (const Qt::MouseButton held : {Qt::LeftButton, Qt::NoButton}) {
        QTest::mousePress(&window(form), Qt::LeftButton, {}, on_image);
        if (held == Qt::LeftButton)
            QTest::mouseRelease(&window(form), Qt::LeftButton, {}, on_image);
        move(on_form, held);
        EXPECT_EQ(std::ranges::count(take_log(), "image drag"), 0);
    }
    // Nobody waits for a double click on the button.
    QTest::mouseClick(&window(form), Qt::LeftButton, {}, on_button);
    QTest::mouseDClick(&window(form), Qt::LeftButton, {}, on_button);
    QTest::mouseRelease(&window(form), Qt::LeftButton, {}, on_button);
    EXPECT_EQ(take_log(), (Log{"button click", "button click"}));
}

TEST_F(MouseTest, TellsWhereItMovesAndWhatTheToolTipIs) {
    moved.clear();
    std::vector<QString> tips;
    WindowView& view = window(form);
    for (const QPoint point : {on_label, on_image, on_form}) {
        const QPoint place = view.mapToGlobal(point);
        move(point, Qt::NoButton);
        QHelpEvent help(QEvent::ToolTip, point, place);
        QApplication::sendEvent(&view, &help);
        tips.push_back(QToolTip::text());
    }
    tips.pop_back();
    EXPECT_EQ(moved, (Log{"label", "image", "form"}));
    EXPECT_EQ(tips, (std::vector<QString>{"Label", "Image"}));
    EXPECT_TRUE(comes_true([] { return !QToolTip::isVisible(); })) << "the form has none";
}

} // namespace
} // namespace lookfar::desktop
