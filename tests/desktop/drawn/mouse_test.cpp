#include "desktop/desktop_fixture.h"

#include "runtime/controls/buttons.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"

#include <QHelpEvent>
#include <QScreen>
#include <QToolTip>

#include <vector>

namespace lookfar::desktop {
namespace {

using Log = std::vector<std::string>;

class MouseForm : public Form {
  public:
    explicit MouseForm(Runtime& host) : Form(host, {.Client = {3000, 3000}}) {
        log_all("label", Label1);
        log_all("image", Image1);
        log_all("form", *this);
    }

    void log_all(const std::string& name, MouseEvents& events) {
        events.Click.connect([this, name] { log.push_back(name + " click"); });
        events.DblClick.connect([this, name] { log.push_back(name + " double"); });
        events.MouseDown.connect([this, name](MouseButton button) {
            log.push_back(name + " down " + std::to_string(static_cast<int>(button)));
        });
        events.MouseMove.connect([this, name] { moved.push_back(name); });
    }

    Shape Cover{*this, {.At = {0, 0, 3000, 3000}}};
    Label Label1{
        *this, {.At = {0, 0, 1500, 1500}, .Back = BackStyle::transparent, .ToolTipText = "Label"}};
    Image Image1{*this, {.At = {0, 0, 3000, 1500}, .Stretch = true, .ToolTipText = "Image"}};
    Log log;
    Log moved;
};

class MouseTest : public DesktopTest {
  protected:
    MouseTest() { show(form); }

    static constexpr QPoint on_label{50, 50};
    static constexpr QPoint on_image{150, 50};
    static constexpr QPoint on_form{50, 150};

    Log log_of(const std::function<void()>& action) {
        form.log.clear();
        action();
        return form.log;
    }

    MouseForm form{runtime};
};

TEST_F(MouseTest, TheFrontmostControlThatTakesTheMouseGetsIt) {
    WindowView& view = window(form);
    const auto press = [&](Qt::MouseButton button, QPoint point) {
        return log_of([&] { QTest::mouseClick(&view, button, {}, point); });
    };
    EXPECT_EQ(press(Qt::LeftButton, on_label), (Log{"label down 1", "label click"}));
    EXPECT_EQ(press(Qt::RightButton, on_label), (Log{"label down 2"}));
    EXPECT_EQ(press(Qt::LeftButton, on_image), (Log{"image down 1", "image click"}));
    EXPECT_EQ(press(Qt::MiddleButton, on_form), (Log{"form down 4"}));
    EXPECT_EQ(press(Qt::LeftButton, on_form), (Log{"form down 1", "form click"}));
    form.Label1.Visible = false;
    EXPECT_EQ(press(Qt::RightButton, on_label), (Log{"image down 2"}));
}

TEST_F(MouseTest, ADoubleClickComesAfterTheClick) {
    WindowView& view = window(form);
    EXPECT_EQ(log_of([&] {
                  QTest::mouseClick(&view, Qt::LeftButton, {}, on_label);
                  QTest::mouseDClick(&view, Qt::LeftButton, {}, on_label);
              }).back(),
              "label double");
}

TEST_F(MouseTest, APressThatIsDraggedToAnotherControlIsNoClick) {
    WindowView& view = window(form);
    EXPECT_EQ(log_of([&] {
                  QTest::mousePress(&view, Qt::LeftButton, {}, on_label);
                  QTest::mouseRelease(&view, Qt::LeftButton, {}, on_image);
              }),
              (Log{"label down 1"}));
}

TEST_F(MouseTest, MovesReachTheControlUnderThePointer) {
    WindowView& view = window(form);
    form.moved.clear();
    for (const QPoint point : {on_label, on_image, on_form}) {
        QMouseEvent move(QEvent::MouseMove, point, view.mapToGlobal(point), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    }
    EXPECT_EQ(form.moved, (Log{"label", "image", "form"}));
}

TEST_F(MouseTest, TooltipsAreThoseOfTheFrontmostControl) {
    WindowView& view = window(form);
    const auto tip_at = [&](QPoint point) {
        QHelpEvent help(QEvent::ToolTip, point, view.mapToGlobal(point));
        QApplication::sendEvent(&view, &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(tip_at(on_label), "Label");
    EXPECT_EQ(tip_at(on_image), "Image");
}

TEST_F(MouseTest, ABareWindowOfTheScreensSizeCoversTheScreen) {
    class CoverForm : public Form {
      public:
        explicit CoverForm(Runtime& host)
            : Form(host, {.Border = FormBorder::none, .ShowInTaskbar = false}) {
            Width = host.Screen().Width;
            Height = host.Screen().Height;
        }
    } cover(runtime);
    show(cover);
    const QRect screen = QApplication::primaryScreen()->geometry();
    EXPECT_TRUE(comes_true([&] { return window(cover).geometry() == screen; }));
    EXPECT_TRUE(window(cover).isFullScreen());
}

TEST_F(MouseTest, AWindowKeepsItsSizeAndTellsWhereItWasMoved) {
    WindowView& view = window(form);
    EXPECT_EQ(view.size(), QSize(200, 200));
    EXPECT_EQ(view.minimumSize(), view.maximumSize());
    form.Left = 1500;
    form.Top = 3000;
    ASSERT_TRUE(comes_true([&] { return view.pos() == QPoint(100, 200); }));
    settle();
    view.move(40, 60);
    EXPECT_TRUE(comes_true([&] { return form.Left == 600.0F && form.Top == 900.0F; }));
}

} // namespace
} // namespace lookfar::desktop
