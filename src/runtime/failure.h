#pragma once

#include <exception>
#include <string>

namespace lookfar {

/// Numbers of the failures that the runtime itself raises. Failures of a file carry the
/// operating system's number, failures of a transfer that of the transfer library.
namespace failure_number {
inline constexpr int overflow = 6;
inline constexpr int list_is_full = 7;
inline constexpr int no_such_entry = 9;
inline constexpr int type_mismatch = 13;
inline constexpr int bad_file_number = 52;
inline constexpr int file_already_open = 55;
inline constexpr int past_end_of_file = 62;
inline constexpr int incomplete_file = 75;
inline constexpr int invalid_property_value = 380;
inline constexpr int invalid_picture = 481;
inline constexpr int transfer_busy = 35764;
inline constexpr int transfer_without_bytes = 35765;
inline constexpr int transfer_cancelled = 35766;
} // namespace failure_number

/// The one way in which a statement fails: a number and a text for the user.
class Failure : public std::exception {
  public:
    Failure(int number, std::string description)
        : Number(number), Description(std::move(description)) {}

    const char* what() const noexcept override { return Description.c_str(); }

    int Number;
    std::string Description;
};

/// The trap that drops a failing statement, so that the next one runs. Gives back whether the
/// statement went through. A trap that leads to a handler is a plain `try`.
template <class Statement>
bool attempt(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

} // namespace lookfar
