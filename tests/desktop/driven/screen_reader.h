#pragma once

#include <QRect>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The library names it so.
// NOLINTNEXTLINE(readability-identifier-naming)
struct _AtspiAccessible;

namespace lookfar::driven {

/// A thing on the screen as assistive technology tells it to its user. It is asked anew at every
/// question; one that has gone has no texts, no states and no children.
class Element {
  public:
    explicit Element(std::shared_ptr<_AtspiAccessible> accessible);

    /// As the accessibility bus words it, such as "push button".
    std::string role() const;
    std::string name() const;
    /// What an input field holds.
    std::string text() const;

    /// Whether its name or its text begins so.
    bool reads(std::string_view beginning) const;

    bool is_showing() const;
    bool is_checked() const;
    bool is_selected() const;
    bool is_focused() const;

    bool belongs_to(qint64 process) const;

    /// In pixels of the screen.
    QRect place() const;

    std::vector<Element> children() const;
    /// Itself and everything inside it that shows, each before its own children.
    std::vector<Element> all_showing() const;
    /// The first one showing of that role whose name or text begins so; every role fits an empty
    /// one.
    std::optional<Element> find(std::string_view role, std::string_view beginning) const;

  private:
    bool has_state(int state) const;
    void add_showing(std::vector<Element>& found) const;

    std::shared_ptr<_AtspiAccessible> accessible_;
};

/// Reads a program's windows through the accessibility bus of the session.
class ScreenReader {
  public:
    /// Throws std::runtime_error where the session has no accessibility bus.
    ScreenReader();

    /// The windows, menus and boxes of the process that show.
    std::vector<Element> windows_of(qint64 process) const;
};

} // namespace lookfar::driven
