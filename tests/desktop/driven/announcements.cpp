#include "desktop/driven/announcements.h"

#include <atspi/atspi.h>

#include <algorithm>
#include <stdexcept>

namespace lookfar::driven {

namespace {

constexpr const char* announcement = "object:announcement";

} // namespace

Announcements::Announcements()
    : listener_(atspi_event_listener_new(take, this, nullptr), g_object_unref) {
    if (!atspi_event_listener_register(listener_.get(), announcement, nullptr))
        throw std::runtime_error("The accessibility bus tells no announcements.");
}

Announcements::~Announcements() {
    atspi_event_listener_deregister(listener_.get(), announcement, nullptr);
}

void Announcements::take(AtspiEvent* event, void* announcements) {
    if (G_VALUE_HOLDS_STRING(&event->any_data))
        static_cast<Announcements*>(announcements)
            ->told_.push_back({.text = g_value_get_string(&event->any_data),
                               .politeness = Politeness{event->detail1}});
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

void Announcements::listen() {
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
}

bool Announcements::told(std::string_view beginning, Politeness politeness) {
    listen();
    return std::ranges::any_of(told_, [&](const Told& each) {
        return each.text.starts_with(beginning) && each.politeness == politeness;
    });
}

void Announcements::forget() {
    listen();
    told_.clear();
}

} // namespace lookfar::driven
