#pragma once

#include "desktop/desktop_platform.h"
#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"
#include "runtime/controls/control.h"
#include "runtime/form.h"
#include "runtime/runtime.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

namespace lookfar::desktop {

/// Real windows on the X server that the tests run on.
class DesktopTest : public testing::Test {
  protected:
    /// Shows the form and waits until the keyboard is its own.
    void show(Form& form) {
        form.Show();
        if (!QTest::qWaitForWindowActive(&window(form)))
            throw std::runtime_error("The window doesn't become active.");
        settle();
    }

    /// Lets everything be shown that is due to be.
    static void settle() {
        constexpr int enough_milliseconds = 30;
        QTest::qWait(enough_milliseconds);
    }

    template <class Condition>
    static bool comes_true(Condition condition) {
        constexpr int longest_milliseconds = 5000;
        return QTest::qWaitFor(condition, longest_milliseconds);
    }

    WindowView& window(const Form& form) {
        WindowView* const view = platform.windows().view_of(form);
        if (!view)
            throw std::runtime_error("The form has no window.");
        return *view;
    }

    template <class Widget = QWidget>
    Widget& widget(const Control& control) {
        auto* const found = dynamic_cast<Widget*>(window(control.form).widget_of(control));
        if (!found)
            throw std::runtime_error("The control has no such widget.");
        return *found;
    }

    QImage pixels(const Form& form) { return window(form).grab().toImage(); }

    /// 0x00RRGGBB.
    unsigned pixel(const Form& form, int x, int y) { return pixels(form).pixel(x, y) & 0xFFFFFFU; }

    int argument_count = 1;
    std::string name = "desktop_test";
    std::array<char*, 2> arguments{name.data(), nullptr};
    DesktopPlatform platform{argument_count, arguments.data(), {}};
    Runtime runtime{platform};
};

/// A picture of one colour.
inline PictureReference plain_picture(int width, int height, std::uint8_t red, std::uint8_t green,
                                      std::uint8_t blue) {
    const int stride = stride_of(width);
    const auto count = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height);
    auto bytes = std::make_shared<std::uint8_t[]>(count);
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column) {
            std::uint8_t* const first =
                &bytes[std::ptrdiff_t{row} * stride + std::ptrdiff_t{column} * 3];
            first[0] = red;
            first[1] = green;
            first[2] = blue;
        }
    return std::make_shared<Picture>(
        Pixels{.width = width, .height = height, .stride = stride, .bytes = bytes, .opacity = {}});
}

} // namespace lookfar::desktop
