#include "desktop/driven/screen_reader.h"

#include <QDBusConnection>
#include <QDBusReply>
#include <atspi/atspi.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace lookfar::driven {

namespace {

constexpr std::string_view state_change = "object:state-changed:";
constexpr std::array kinds{"object:announcement", "object:text-changed",
                           "object:state-changed:expanded", "object:state-changed:showing",
                           "object:property-change:accessible-value"};

/// Takes an object of libatspi over.
template <class Object>
std::shared_ptr<Object> owned(Object* object) {
    return {object, [](Object* own) { g_clear_object(&own); }};
}

/// Takes a text of libatspi over; empty where it gave none.
std::string taken(gchar* text) {
    const std::unique_ptr<gchar, decltype(&g_free)> own(text, g_free);
    return own ? own.get() : std::string();
}

/// The words of the bus, but for the role whose name depends on its version.
std::string role_of(AtspiAccessible* accessible) {
    return atspi_accessible_get_role(accessible, nullptr) == ATSPI_ROLE_PUSH_BUTTON
               ? "push button"
               : taken(atspi_accessible_get_role_name(accessible, nullptr));
}

/// The address that is in force now. libatspi would rather take one that an earlier session
/// left on the X server.
QByteArray accessibility_bus_address() {
    const QDBusReply<QString> address =
        QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"));
    if (!address.isValid())
        throw std::runtime_error("There is no accessibility bus: " +
                                 address.error().message().toStdString());
    return address.value().toUtf8();
}

} // namespace

Element::Element(std::shared_ptr<AtspiAccessible> accessible)
    : accessible_(std::move(accessible)) {}

std::string Element::name() const {
    return taken(atspi_accessible_get_name(accessible_.get(), nullptr));
}

std::string Element::description() const {
    const std::string role = role_of(accessible_.get());
    const auto field = owned(atspi_accessible_get_text_iface(accessible_.get()));
    const std::string content =
        field && role == "text"
            ? " holding '" + taken(atspi_text_get_text(field.get(), 0, -1, nullptr)) + "'"
            : "";
    return role + " '" + name() + "'" + content;
}

bool Element::is(State state) const {
    const auto states = owned(atspi_accessible_get_state_set(accessible_.get()));
    return states &&
           atspi_state_set_contains(states.get(), static_cast<AtspiStateType>(state)) != FALSE;
}

QRect Element::place() const {
    const auto component = owned(atspi_accessible_get_component_iface(accessible_.get()));
    if (!component)
        return {};
    const std::unique_ptr<AtspiRect, decltype(&g_free)> place(
        atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr), g_free);
    return place ? QRect(place->x, place->y, place->width, place->height) : QRect();
}

std::vector<Element> Element::children() const {
    std::vector<Element> found;
    const int count = atspi_accessible_get_child_count(accessible_.get(), nullptr);
    for (int index = 0; index < count; ++index)
        if (auto child =
                owned(atspi_accessible_get_child_at_index(accessible_.get(), index, nullptr)))
            found.emplace_back(std::move(child));
    return found;
}

std::vector<Element> Element::all_showing() const {
    if (!is(State::showing))
        return {};
    std::vector found{*this};
    for (const Element& child : children())
        std::ranges::move(child.all_showing(), std::back_inserter(found));
    return found;
}

bool Element::belongs_to(qint64 process) const {
    return atspi_accessible_get_process_id(accessible_.get(), nullptr) == process;
}

ScreenReader::ScreenReader() {
    qputenv("AT_SPI_BUS_ADDRESS", accessibility_bus_address());
    atspi_init();
    listener_ = owned(atspi_event_listener_new(take, this, nullptr));
    for (const char* const kind : kinds)
        if (!atspi_event_listener_register(listener_.get(), kind, nullptr))
            throw std::runtime_error("The accessibility bus tells nothing.");
}

ScreenReader::~ScreenReader() {
    for (const char* const kind : kinds)
        atspi_event_listener_deregister(listener_.get(), kind, nullptr);
}

std::vector<Element> ScreenReader::windows_of(qint64 process) const {
    std::vector<Element> found;
    for (const Element& program : Element(owned(atspi_get_desktop(0))).children())
        if (program.belongs_to(process))
            std::ranges::move(program.children(), std::back_inserter(found));
    return found;
}

void ScreenReader::take(AtspiEvent* event, void* reader) {
    const std::string type = event->type;
    const bool is_text = G_VALUE_HOLDS_STRING(&event->any_data) && !type.starts_with(state_change);
    static_cast<ScreenReader*>(reader)->told_.emplace_back(
        is_text ? g_value_get_string(&event->any_data)
                : type + " " + std::to_string(event->detail1),
        Politeness{event->detail1});
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

void ScreenReader::listen() {
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
}

bool ScreenReader::was_told(std::string_view beginning, Politeness politeness) {
    listen();
    return std::ranges::any_of(told_, [&](const auto& each) {
        return each.first.starts_with(beginning) && each.second == politeness;
    });
}

bool ScreenReader::heard(std::string_view part) {
    listen();
    return std::ranges::any_of(
        told_, [&](const auto& each) { return each.first.find(part) != std::string::npos; });
}

void ScreenReader::forget() {
    listen();
    told_.clear();
}

} // namespace lookfar::driven
