#pragma once

#include <QRect>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// libatspi names them so.
// NOLINTBEGIN(readability-identifier-naming)
struct _AtspiAccessible;
struct _AtspiEvent;
struct _AtspiEventListener;
// NOLINTEND(readability-identifier-naming)

namespace lookfar::driven {

/// How a thing is, numbered as on the accessibility bus.
enum class State {
    active = 1,
    checked = 4,
    collapsed = 5,
    expanded = 10,
    focused = 12,
    selected = 23,
    showing = 25
};

/// A thing on the screen as assistive technology tells it to its user. It is asked anew at every
/// question; one that has gone has no texts, no states and no children.
class Element {
  public:
    explicit Element(std::shared_ptr<_AtspiAccessible> accessible);

    std::string name() const;
    /// Role and name, and what an input field holds, as in "push button 'Ok'" or
    /// "text 'Seconds' holding '10'".
    std::string description() const;

    bool is(State state) const;
    /// In pixels of the screen.
    QRect place() const;

    /// Itself and everything inside it that shows, each before its own children.
    std::vector<Element> all_showing() const;
    std::vector<Element> children() const;

    bool belongs_to(qint64 process) const;

  private:
    std::shared_ptr<_AtspiAccessible> accessible_;
};

/// How a screen reader tells a text unasked: once it has finished what it says, or at once.
enum class Politeness { waits = 1, interrupts = 2 };

/// Reads a program's windows through the accessibility bus of the session, and hears what is told
/// unasked there.
class ScreenReader {
  public:
    ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;
    ~ScreenReader();

    /// The windows and boxes of the process.
    std::vector<Element> windows_of(qint64 process) const;

    /// Whether a text that begins so was told since the last `forget`.
    bool was_told(std::string_view beginning, Politeness politeness);
    /// Whether such a part was in any of them, or in a change of an input field, or in a change of
    /// state, such as "state-changed:showing 0".
    bool heard(std::string_view part);
    void forget();

  private:
    void listen();
    static void take(_AtspiEvent* event, void* reader);

    std::vector<std::pair<std::string, Politeness>> told_;
    std::shared_ptr<_AtspiEventListener> listener_;
};

} // namespace lookfar::driven
