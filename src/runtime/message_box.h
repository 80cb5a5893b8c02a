#pragma once

#include <string>

namespace lookfar {

/// The buttons of a message box, its icon, and the button that Enter presses; a box has the sum of
/// its flags.
enum class MessageBoxFlag : int {
    ok_only = 0,
    yes_no = 4,
    critical = 16,
    question = 32,
    information = 64,
    second_button_default = 256,
};

constexpr MessageBoxFlag operator+(MessageBoxFlag left, MessageBoxFlag right) {
    return static_cast<MessageBoxFlag>(static_cast<int>(left) + static_cast<int>(right));
}

enum class MessageBoxAnswer : short { ok = 1, yes = 6, no = 7 };

/// A question or a notice.
struct MessageBox {
    std::string text;
    MessageBoxFlag flags = MessageBoxFlag::ok_only;
    /// The application's title where it is empty.
    std::string title;
};

} // namespace lookfar
