#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace lookfar {

/// Owns a descriptor of the system's, or none, which is -1.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ != -1)
            ::close(number_);
    }

    int number() const { return number_; }
    explicit operator bool() const { return number_ != -1; }

  private:
    int number_ = -1;
};

/// Repeats a system call that a signal has interrupted.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

} // namespace lookfar
