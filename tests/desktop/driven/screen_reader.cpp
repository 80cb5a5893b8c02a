#include "desktop/driven/screen_reader.h"

#include <QDBusConnection>
#include <QDBusReply>
#include <atspi/atspi.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace lookfar::driven {

namespace {

struct Unreferenced {
    void operator()(void* object) const { g_object_unref(object); }
};

struct Freed {
    void operator()(void* memory) const { g_free(memory); }
};

template <class Object>
using Reference = std::unique_ptr<Object, Unreferenced>;

/// Takes over a text that the bus gave; empty where it gave none.
std::string taken(gchar* text) {
    const std::unique_ptr<gchar, Freed> owned(text);
    return owned ? owned.get() : std::string();
}

std::shared_ptr<AtspiAccessible> shared(AtspiAccessible* accessible) {
    return {accessible, [](AtspiAccessible* own) {
                if (own)
                    g_object_unref(own);
            }};
}

/// The address that is in force now. The library would rather take one that an earlier session
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

std::string Element::role() const {
    return taken(atspi_accessible_get_role_name(accessible_.get(), nullptr));
}

std::string Element::name() const {
    return taken(atspi_accessible_get_name(accessible_.get(), nullptr));
}

std::string Element::text() const {
    const Reference<AtspiText> text(atspi_accessible_get_text_iface(accessible_.get()));
    return text ? taken(atspi_text_get_text(text.get(), 0, -1, nullptr)) : std::string();
}

bool Element::reads(std::string_view beginning) const {
    return name().starts_with(beginning) || text().starts_with(beginning);
}

bool Element::has_state(int state) const {
    const Reference<AtspiStateSet> states(atspi_accessible_get_state_set(accessible_.get()));
    return states &&
           atspi_state_set_contains(states.get(), static_cast<AtspiStateType>(state)) != FALSE;
}

bool Element::is_showing() const {
    return has_state(ATSPI_STATE_SHOWING);
}

bool Element::is_checked() const {
    return has_state(ATSPI_STATE_CHECKED);
}

bool Element::is_selected() const {
    return has_state(ATSPI_STATE_SELECTED);
}

bool Element::is_focused() const {
    return has_state(ATSPI_STATE_FOCUSED);
}

bool Element::belongs_to(qint64 process) const {
    return atspi_accessible_get_process_id(accessible_.get(), nullptr) == process;
}

QRect Element::place() const {
    const Reference<AtspiComponent> component(
        atspi_accessible_get_component_iface(accessible_.get()));
    if (!component)
        return {};
    const std::unique_ptr<AtspiRect, Freed> place(
        atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr));
    return place ? QRect(place->x, place->y, place->width, place->height) : QRect();
}

std::vector<Element> Element::children() const {
    std::vector<Element> found;
    const int count = atspi_accessible_get_child_count(accessible_.get(), nullptr);
    for (int index = 0; index < count; ++index)
        if (auto child =
                shared(atspi_accessible_get_child_at_index(accessible_.get(), index, nullptr)))
            found.emplace_back(std::move(child));
    return found;
}

std::vector<Element> Element::all_showing() const {
    std::vector<Element> found;
    add_showing(found);
    return found;
}

void Element::add_showing(std::vector<Element>& found) const {
    if (!is_showing())
        return;
    found.push_back(*this);
    for (const Element& child : children())
        child.add_showing(found);
}

std::optional<Element> Element::find(std::string_view role, std::string_view beginning) const {
    const std::vector<Element> all = all_showing();
    const auto found = std::ranges::find_if(all, [&](const Element& element) {
        return element.reads(beginning) && (role.empty() || element.role() == role);
    });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

ScreenReader::ScreenReader() {
    qputenv("AT_SPI_BUS_ADDRESS", accessibility_bus_address());
    atspi_init();
}

std::vector<Element> ScreenReader::windows_of(qint64 process) const {
    std::vector<Element> found;
    for (const Element& program : Element(shared(atspi_get_desktop(0))).children()) {
        if (!program.belongs_to(process))
            continue;
        std::ranges::copy_if(program.children(), std::back_inserter(found), &Element::is_showing);
    }
    return found;
}

} // namespace lookfar::driven
