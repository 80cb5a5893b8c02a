#pragma once

#include <exception>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

namespace lookfar {

/// What code decides by. Each value is the number that the user reads where the runtime itself
/// fails so.
enum class FailureKind {
    /// One that no code treats apart. Its number is that of the system or of the transfer library,
    /// and may equal one of those below.
    other = 0,
    overflow = 6,
    list_is_full = 7,
    no_such_entry = 9,
    type_mismatch = 13,
    too_large = 14,
    bad_file_number = 52,
    file_not_found = 53,
    file_already_open = 55,
    past_end_of_file = 62,
    file_in_use = 70,
    incomplete_file = 75,
    invalid_property_value = 380,
    unknown_picture_format = 461,
    invalid_picture = 481,
    transfer_busy = 35764,
    transfer_without_bytes = 35765,
    transfer_cancelled = 35766,
};

/// The one way in which a statement fails: a kind for the code that traps it, a number and a text
/// for the user.
class Failure : public std::exception {
  public:
    /// A failure of the runtime's own, with the number of its kind.
    Failure(FailureKind kind, std::string description)
        : Failure(kind, static_cast<int>(kind), std::move(description)) {}
    /// A failure of the system or of the transfer library, with the number that it has there.
    Failure(int number, std::string description)
        : Failure(FailureKind::other, number, std::move(description)) {}
    Failure(FailureKind kind, int number, std::string description)
        : Kind(kind), Number(number), Description(std::move(description)) {}

    const char* what() const noexcept override { return Description.c_str(); }

    FailureKind Kind;
    int Number;
    std::string Description;
};

/// The trap that drops a failing statement, so that the next one runs. A trap that leads to a
/// handler is a plain `try`.
template <class Statement>
void attempt(Statement&& statement) {
    try {
        statement();
    } catch (const Failure&) {
    }
}

/// The same for statements that follow each other: each that fails is dropped.
inline void attempt_each(std::initializer_list<std::function<void()>> statements) {
    for (const auto& statement : statements)
        attempt(statement);
}

} // namespace lookfar
