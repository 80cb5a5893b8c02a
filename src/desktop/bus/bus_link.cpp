#include "desktop/bus/bus_link.h"

#include <poll.h>

#include <cerrno>
#include <span>
#include <utility>
#include <vector>

namespace lookfar::desktop {

namespace {

/// A name that a bus may give; the client needs none that is its own.
constexpr const char* client_name = ":0.0";
constexpr const char* accessibility_service = "org.a11y.Bus";

BusMessage answer_with(const BusMessage& question, const char* text) {
    BusMessage answer(dbus_message_new_method_return(question.get()));
    dbus_message_append_args(answer.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    return answer;
}

BusMessage answer_with(const BusMessage& question, bool value) {
    BusMessage answer(dbus_message_new_method_return(question.get()));
    const dbus_bool_t argument = value ? TRUE : FALSE;
    dbus_message_append_args(answer.get(), DBUS_TYPE_BOOLEAN, &argument, DBUS_TYPE_INVALID);
    return answer;
}

std::string first_text_of(const BusMessage& message) {
    const char* text = "";
    dbus_message_get_args(message.get(), nullptr, DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    return text;
}

bool is_answer(const BusMessage& message) {
    const int type = dbus_message_get_type(message.get());
    return type == DBUS_MESSAGE_TYPE_METHOD_RETURN || type == DBUS_MESSAGE_TYPE_ERROR;
}

bool is_failure(const BusMessage& message) {
    return dbus_message_get_type(message.get()) == DBUS_MESSAGE_TYPE_ERROR;
}

} // namespace

void BusLink::run() {
    if (!client_.let_in())
        return;
    do {
        while (BusMessage message = client_.next())
            handle_from_client(std::move(message));
        while (BusMessage message = bus_.next())
            handle_from_bus(std::move(message));
    } while (wait());
}

bool BusLink::wait() {
    std::vector<pollfd> polled = bus_.wanted();
    polled.push_back({.fd = client_.descriptor(), .events = POLLIN, .revents = 0});
    if (::poll(polled.data(), polled.size(), -1) == -1)
        return errno == EINTR;
    bus_.handle(std::span(polled).first(polled.size() - 1));
    const bool is_client_there = polled.back().revents == 0 || client_.receive();
    return is_client_there && bus_.is_open();
}

void BusLink::handle_from_client(BusMessage message) {
    BusMessage own_answer = has_answered_ ? nullptr : answer_to(message);
    if (is_call_to_bus(message, "Hello"))
        own_answer = answer_with(message, client_name);
    if (own_answer)
        tell(own_answer);
    else if (has_answered_)
        pass_on(message);
    else
        waiting_.push_back(std::move(message));
}

BusMessage BusLink::answer_to(const BusMessage& question) {
    const std::string name = first_text_of(question);
    const bool is_there = name == accessibility_service && !accessibility_bus_.empty();
    if (is_call_to_bus(question, "NameHasOwner")) {
        if (!is_there)
            sought_.insert(name);
        return answer_with(question, is_there);
    }
    if (is_call_to_bus(question, "GetNameOwner")) {
        if (is_there)
            return answer_with(question, accessibility_service);
        sought_.insert(name);
        return BusMessage(dbus_message_new_error(question.get(), DBUS_ERROR_NAME_HAS_NO_OWNER,
                                                 "The bus does not answer yet."));
    }
    const bool is_of_accessibility =
        dbus_message_has_destination(question.get(), accessibility_service) != FALSE;
    return is_of_accessibility ? answer_of_accessibility(question) : nullptr;
}

/// Whether a screen reader runs is not known yet; the program then tells its texts to be safe.
BusMessage BusLink::answer_of_accessibility(const BusMessage& question) const {
    if (dbus_message_is_method_call(question.get(), accessibility_service, "GetAddress"))
        return answer_with(question, accessibility_bus_.c_str());
    if (!dbus_message_is_method_call(question.get(), DBUS_INTERFACE_PROPERTIES, "Get"))
        return nullptr;
    BusMessage answer(dbus_message_new_method_return(question.get()));
    const dbus_bool_t yes = TRUE;
    DBusMessageIter arguments;
    DBusMessageIter variant;
    dbus_message_iter_init_append(answer.get(), &arguments);
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_VARIANT, DBUS_TYPE_BOOLEAN_AS_STRING,
                                     &variant);
    dbus_message_iter_append_basic(&variant, DBUS_TYPE_BOOLEAN, &yes);
    dbus_message_iter_close_container(&arguments, &variant);
    return answer;
}

/// The bus wants numbers of this connection.
void BusLink::pass_on(const BusMessage& message) {
    const BusMessage copy(dbus_message_copy(message.get()));
    const dbus_uint32_t number = bus_.send(copy);
    if (!dbus_message_get_no_reply(message.get()))
        calls_.emplace(number, dbus_message_get_serial(message.get()));
}

void BusLink::handle_from_bus(BusMessage message) {
    if (!is_answer(message)) {
        if (has_answered_)
            client_.send(message);
        return;
    }
    // The first answer is that to the hello.
    if (!std::exchange(has_answered_, true)) {
        begin_to_pass_on();
        return;
    }
    const dbus_uint32_t number = dbus_message_get_reply_serial(message.get());
    if (const auto question = questions_.extract(number)) {
        tell_of_owner(question.mapped(), message);
    } else if (const auto call = calls_.extract(number)) {
        const BusMessage copy(dbus_message_copy(message.get()));
        dbus_message_set_reply_serial(copy.get(), call.mapped());
        tell(copy);
    }
}

void BusLink::begin_to_pass_on() {
    for (const BusMessage& message : std::exchange(waiting_, {}))
        pass_on(message);
    for (const std::string& name : sought_) {
        const BusMessage question = call_to_bus("GetNameOwner");
        const char* const text = name.c_str();
        dbus_message_append_args(question.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
        questions_.emplace(bus_.send(question), name);
    }
}

void BusLink::tell_of_owner(const std::string& name, const BusMessage& answer) {
    if (is_failure(answer))
        return;
    const std::string owner = first_text_of(answer);
    const char* const texts[] = {name.c_str(), "", owner.c_str()};
    const BusMessage news(
        dbus_message_new_signal(DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "NameOwnerChanged"));
    dbus_message_append_args(news.get(), DBUS_TYPE_STRING, &texts[0], DBUS_TYPE_STRING, &texts[1],
                             DBUS_TYPE_STRING, &texts[2], DBUS_TYPE_INVALID);
    tell(news);
}

/// Whatever the bus itself says comes from its name, and has a number.
void BusLink::tell(const BusMessage& message) {
    dbus_message_set_serial(message.get(), 1);
    if (!dbus_message_get_sender(message.get()))
        dbus_message_set_sender(message.get(), DBUS_SERVICE_DBUS);
    client_.send(message);
}

} // namespace lookfar::desktop
