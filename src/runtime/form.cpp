#include "runtime/form.h"

#include "runtime/controls/timer.h"
#include "runtime/runtime.h"
#include "runtime/window_system.h"

#include <ranges>

namespace lookfar {

Form::Form(Runtime& host, const FormDesign& design)
    : Element(host),
      Caption(*this, design.Caption),
      Visible(*this, false, {.changed = [this] { raise_first_resize(); }}),
      Left(*this, 0.0F),
      Top(*this, 0.0F),
      Width(*this, design.Client.Width, {.changed = [this] { Resize.raise(); }}),
      Height(*this, design.Client.Height, {.changed = [this] { Resize.raise(); }}),
      WindowState(*this, WindowState::normal, {.changed = [this] { Resize.raise(); }}),
      MousePointer(*this, design.MousePointer),
      Design(design) {}

Form::~Form() = default;

void Form::Show() {
    if (WindowState == WindowState::minimised)
        apply_state(WindowState::normal);
    Visible = true;
    runtime.windows().bring_forward(*this);
}

void Form::Hide() {
    Visible = false;
}

void Form::PopupMenu(lookfar::PopupMenu& menu, const MenuItem* default_entry) {
    runtime.windows().pop_up(*this, menu, default_entry);
}

void Form::request_close() {
    constexpr short by_the_control_box = 0;
    short cancel = 0;
    QueryUnload.raise(cancel, by_the_control_box);
    if (cancel != 0)
        return;
    Unload.raise();
    Hide();
    stop_timers();
    release_();
}

void Form::apply_state(lookfar::WindowState state) {
    const bool keeps_size =
        state != WindowState::maximised && WindowState != WindowState::maximised;
    if (keeps_size)
        WindowState.store(state);
    else
        WindowState = state;
}

void Form::remove(Control& control) {
    std::erase(controls_, &control);
}

void Form::start_timers() {
    runs_timers_ = true;
    for (Timer* const timer : std::views::reverse(timers_))
        timer->restart();
}

void Form::stop_timers() {
    runs_timers_ = false;
    for (Timer* const timer : timers_)
        timer->restart();
}

void Form::raise_first_resize() {
    if (!Visible || was_displayed_)
        return;
    was_displayed_ = true;
    Resize.raise();
}

} // namespace lookfar
