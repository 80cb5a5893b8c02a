#include "desktop/window/windows.h"

#include "desktop/native/owned_by_qt.h"
#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_view.h"
#include "runtime/form.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <ranges>
#include <utility>

namespace lookfar::desktop {

Windows::Windows(std::function<QIcon()> make_icon) : make_icon_(std::move(make_icon)) {}

Windows::~Windows() {
    const auto suspension = actions_.suspend();
    views_.clear();
    // No message loop runs any more that would delete what is to be deleted later.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Windows::changed(Element& element) {
    if (changed_.insert(&element).second)
        changed_in_order_.push_back(&element);
    synchronise_later();
}

void Windows::synchronise_later() {
    if (std::exchange(is_scheduled_, true))
        return;
    QMetaObject::invokeMethod(
        &loop_,
        [this] {
            is_scheduled_ = false;
            synchronise();
        },
        Qt::QueuedConnection);
}

void Windows::forget(Element& element) {
    const auto suspension = actions_.suspend();
    Forgotten.raise(element);
    if (changed_.erase(&element) > 0)
        std::erase(changed_in_order_, &element);
    if (views_.erase(&element) > 0)
        return;
    for (const auto& view : std::views::values(views_))
        view->forget(element);
}

void Windows::synchronise() {
    if (actions_.are_suspended())
        return;
    const auto suspension = actions_.suspend();
    apply_changes();
    if (is_any_on_its_way())
        return;
    hide_leaving();
    apply_icon();
}

void Windows::apply_changes() {
    changed_.clear();
    for (Element* const element : std::exchange(changed_in_order_, {}))
        synchronise(*element);
    for (const auto& view : std::views::values(views_))
        view->show_edited_pictures();
}

bool Windows::is_any_on_its_way() const {
    return std::ranges::any_of(std::views::values(views_), [](const auto& view) {
        return view->is_coming_up() || view->is_coming_forward();
    });
}

void Windows::hide_leaving() {
    for (const auto& view : std::views::values(views_))
        if (view->is_leaving())
            view->hide();
}

void Windows::apply_icon() {
    if (!make_icon_ || views_.empty())
        return;
    icon_ = std::exchange(make_icon_, nullptr)();
    for (const auto& view : std::views::values(views_))
        view->apply_icon(icon_);
}

void Windows::synchronise(Element& element) {
    if (auto* const form = dynamic_cast<Form*>(&element)) {
        synchronise_window(*form);
        return;
    }
    auto* const control = dynamic_cast<Control*>(&element);
    WindowView* const view = control ? view_of(control->form) : nullptr;
    if (view)
        view->synchronise(*control);
}

void Windows::synchronise_window(Form& form) {
    auto view = views_.find(&form);
    if (view == views_.end() && form.Visible)
        view = views_.emplace(&form, make_view(form)).first;
    if (view != views_.end())
        view->second->synchronise_window();
}

TiedWidget<WindowView> Windows::make_view(Form& form) {
    WindowView& view = *owned_by_qt<WindowView>(form, *this, icon_);
    TiedWidget<WindowView> tied(view);
    QObject::connect(tied.tie(), &QObject::destroyed, &view, [&view] { view.release(); });
    return tied;
}

void Windows::bring_forward(Form& form) {
    if (!actions_.are_suspended()) {
        const auto suspension = actions_.suspend();
        apply_changes();
    }
    if (WindowView* const view = view_of(form))
        view->come_forward();
    synchronise();
}

void Windows::set_focus(Control& control) {
    synchronise();
    if (WindowView* const view = view_of(control.form))
        view->set_focus(control);
}

void Windows::show_hint(Control& control, const std::string& text) {
    synchronise();
    if (WindowView* const view = view_of(control.form))
        view->show_hint(control, whole_text(text));
}

void Windows::announce(Control& control, const std::string& text) {
    synchronise();
    if (WindowView* const view = view_of(control.form))
        Announced.raise(*view, control, shown_text(text));
}

void Windows::pop_up(Form& form, PopupMenu& menu, const MenuItem* default_entry) {
    synchronise();
    if (WindowView* const view = view_of(form))
        view->pop_up(menu, default_entry);
}

ScreenMetrics Windows::screen_metrics() const {
    const QSize size = screen().size();
    return {.size = {to_twips(size.width()), to_twips(size.height())},
            .bits_per_pixel = bits_per_pixel(screen().depth())};
}

Size Windows::text_size(const std::string& text, const Font& font,
                        std::optional<float> wrap_width) const {
    return wrap_width ? measure_wrapped_text(text, font, *wrap_width) : measure_text(text, font);
}

QScreen& Windows::screen() const {
    for (const auto is_sought : {&WindowView::covers_screen, &WindowView::is_main_window})
        for (const auto& view : std::views::values(views_))
            if (((*view).*is_sought)())
                return *view->screen();
    return *QGuiApplication::primaryScreen();
}

WindowView* Windows::view_of(const Form& form) const {
    const auto view = views_.find(&form);
    return view == views_.end() ? nullptr : &*view->second;
}

} // namespace lookfar::desktop
