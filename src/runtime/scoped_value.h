#pragma once

#include <utility>

namespace lookfar {

/// Gives a variable another value while it lives.
template <class Value>
class ScopedValue {
  public:
    ScopedValue(Value& variable, Value value)
        : variable_(variable), before_(std::exchange(variable, value)) {}
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;
    ~ScopedValue() { variable_ = before_; }

  private:
    Value& variable_;
    Value before_;
};

} // namespace lookfar
