#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace lookfar {

/// A list of handlers that are called one after the other, inside `raise`. Handlers may raise
/// the same event again and may connect further handlers, which are then called too.
template <class... Arguments>
class Event {
  public:
    using Handler = std::function<void(Arguments...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() = default;

    /// Whether anybody would be called.
    bool is_connected() const { return !handlers_.empty(); }

    void connect(Handler handler) { handlers_.push_back(std::move(handler)); }

    /// Connects a member function; the object must outlive the event.
    template <class Object>
    void connect(Object* object, void (Object::*handler)(Arguments...)) {
        connect([object, handler](Arguments... arguments) { (object->*handler)(arguments...); });
    }

    void raise(Arguments... arguments) const {
        for (std::size_t index = 0; index < handlers_.size(); ++index) {
            const Handler handler = handlers_[index];
            handler(arguments...);
        }
    }

  private:
    std::vector<Handler> handlers_;
};

} // namespace lookfar
