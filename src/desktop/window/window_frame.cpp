#include "desktop/window/window_frame.h"

#include "desktop/style/geometry.h"
#include "runtime/form.h"

namespace lookfar::desktop {

namespace {

Qt::WindowFlags window_type(const Form& form) {
    // Task bars leave tool windows out.
    if (form.Border == FormBorder::fixed_tool_window || !form.ShowInTaskbar)
        return Qt::Tool;
    return form.Border == FormBorder::fixed_dialog ? Qt::Dialog : Qt::Window;
}

Qt::WindowFlags title_bar(const Form& form) {
    Qt::WindowFlags flags = Qt::WindowTitleHint;
    if (!form.ControlBox)
        return flags;
    flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (form.MinButton && form.Border == FormBorder::fixed_single)
        flags |= Qt::WindowMinimizeButtonHint;
    return flags;
}

} // namespace

Qt::WindowFlags window_flags(const Form& form) {
    const Qt::WindowFlags type = window_type(form);
    if (form.Border == FormBorder::none)
        return type | Qt::FramelessWindowHint;
    const Qt::WindowFlags customised = type | Qt::CustomizeWindowHint;
    return is_bare_dialog(form) ? customised : customised | title_bar(form);
}

bool is_bare_dialog(const Form& form) {
    return form.Border == FormBorder::fixed_dialog && !form.ControlBox;
}

QSize client_size(const Form& form) {
    return {to_whole_pixels(form.Width), to_whole_pixels(form.Height)};
}

QPoint window_position(const Form& form) {
    return {to_whole_pixels(form.Left), to_whole_pixels(form.Top)};
}

bool covers_screen(const Form& form, const QSize& screen) {
    const QSize size = client_size(form);
    return form.Border == FormBorder::none && size.width() >= screen.width() &&
           size.height() >= screen.height();
}

Qt::WindowStates window_states(const Form& form, const QSize& screen) {
    if (form.WindowState == WindowState::minimised)
        return Qt::WindowMinimized;
    if (covers_screen(form, screen))
        return Qt::WindowFullScreen;
    return form.WindowState == WindowState::maximised ? Qt::WindowMaximized : Qt::WindowNoState;
}

} // namespace lookfar::desktop
