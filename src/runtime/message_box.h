#pragma once

#include <string>

namespace lookfar {

namespace message_box_flag {
inline constexpr int yes_no = 4;
inline constexpr int critical = 16;
inline constexpr int question = 32;
inline constexpr int information = 64;
inline constexpr int second_button_default = 256;
} // namespace message_box_flag

namespace message_box_answer {
inline constexpr short ok = 1;
inline constexpr short yes = 6;
inline constexpr short no = 7;
} // namespace message_box_answer

/// A question or a notice. The flags are a sum: the buttons (0 for OK alone, or `yes_no`), the
/// icon, and which button Enter presses.
struct MessageBox {
    std::string text;
    int flags = 0;
    /// The application's title where it is empty.
    std::string title;
};

} // namespace lookfar
