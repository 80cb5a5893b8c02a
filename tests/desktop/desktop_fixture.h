#pragma once

#include "desktop/desktop_platform.h"
#include "desktop/mailbox.h"
#include "desktop/waiting.h"
#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"
#include "pictures/decode_pixels.h"
#include "resources/resources.h"
#include "runtime/controls/bars.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/label.h"
#include "runtime/controls/lists.h"
#include "runtime/controls/text_box.h"
#include "runtime/form.h"
#include "runtime/runtime.h"
#include "support/pictures.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace lookfar::desktop {

/// Real windows on the X server that the tests run on.
class DesktopTest : public ::testing::Test {
  protected:
    /// Shows the form and waits until the keyboard is its own.
    void show(Form& form) {
        form.Show();
        // A window that was active may be taken for that for a moment after it was hidden.
        if (!comes_true([&] { return window(form).isVisible(); }) ||
            !QTest::qWaitForWindowActive(&window(form)))
            throw std::runtime_error("The window doesn't become active.");
    }

    /// Lets the message loop do all that it had to do when this was called.
    void let_loop_come_round() {
        bool has_come_round = false;
        platform.mailbox().post([&] { has_come_round = true; });
        platform.wait_until([&] { return has_come_round; });
    }

    WindowView& window(const Form& form) {
        WindowView* const view = platform.windows_on_screen().view_of(form);
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

    /// The same as the X server shows it; a grab of pixels would paint them first.
    QImage on_screen(const Form& form) {
        const WindowView& view = window(form);
        return view.screen()->grabWindow(view.winId()).toImage();
    }
    unsigned on_screen(const Form& form, int x, int y) {
        return on_screen(form).pixel(x, y) & 0xFFFFFFU;
    }

    int argument_count = 1;
    std::string name = "desktop_test";
    std::array<char*, 2> arguments{name.data(), nullptr};
    DesktopPlatform platform{argument_count, arguments.data(), resources::icons(), LOOKFAR_DECODER};
    Runtime runtime{platform};
};

/// A picture of exactly these pixels.
inline PictureReference picture_of(const QImage& image) {
    return std::make_shared<Picture>(decode_pixels(lookfar::testing::encode(image, "png")));
}

inline PictureReference plain_picture(int width, int height, const QColor& colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return picture_of(image);
}

/// The smallest rectangle that holds every pixel that is not black.
inline QRect lit_rectangle(const QImage& image) {
    QRect lit;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & 0xFFFFFFU) != 0)
                lit |= QRect(x, y, 1, 1);
    return lit;
}

/// How many pixels have exactly that colour.
inline int count_of(const QColor& colour, const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

} // namespace lookfar::desktop
