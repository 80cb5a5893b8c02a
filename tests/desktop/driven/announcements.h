#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The library names them so.
// NOLINTBEGIN(readability-identifier-naming)
struct _AtspiEvent;
struct _AtspiEventListener;
// NOLINTEND(readability-identifier-naming)

namespace lookfar::driven {

/// How a screen reader tells a text unasked: once it has finished what it says, or at once.
enum class Politeness { waits = 1, interrupts = 2 };

/// What programs on the accessibility bus have told unasked since this object was made. A
/// `ScreenReader` has to be there before.
class Announcements {
  public:
    Announcements();
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;
    ~Announcements();

    /// Whether a text that begins so was told.
    bool told(std::string_view beginning, Politeness politeness);
    void forget();

  private:
    struct Told {
        std::string text;
        Politeness politeness;
    };

    void listen();
    static void take(_AtspiEvent* event, void* announcements);

    std::vector<Told> told_;
    std::shared_ptr<_AtspiEventListener> listener_;
};

} // namespace lookfar::driven
