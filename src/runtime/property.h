#pragma once

#include "runtime/element.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace lookfar {

/// What a property does around a write; either may be empty.
template <class Value>
struct PropertyRules {
    /// Throws a `Failure` for a value that the property refuses; the old value then stays.
    std::function<void(const Value&)> refuse = {};
    /// Runs last, inside the write, when the value has changed; raises the property's event.
    std::function<void()> changed = {};
};

/// A value of an element that reads like a member and is written by assignment.
///
/// A write refuses what the rules refuse, does nothing for the value that is there already,
/// stores the new one, tells the platform, and raises the property's event, all before the
/// assignment returns.
template <class Value>
class Property {
  public:
    Property(Element& owner, Value design_value, PropertyRules<Value> rules = {})
        : owner_(owner), value_(std::move(design_value)), rules_(std::move(rules)) {}
    Property(const Property&) = delete;
    ~Property() = default;

    const Value& get() const { return value_; }
    operator const Value&() const { return value_; }

    // The other assignment takes a copy of the value.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    Property& operator=(const Property& other) { return *this = other.value_; }
    Property& operator=(Value value) {
        if (rules_.refuse)
            rules_.refuse(value);
        if (value == value_)
            return *this;
        value_ = std::move(value);
        owner_.changed();
        if (rules_.changed)
            rules_.changed();
        return *this;
    }

    /// Stores a value that follows from another write: no rule, no event.
    void store(Value value) {
        value_ = std::move(value);
        owner_.changed();
    }

    friend bool operator==(const Property& left, const Property& right)
        requires(!std::is_arithmetic_v<Value>)
    {
        return left.value_ == right.value_;
    }
    friend bool operator==(const Property& left, const Value& right)
        requires(!std::is_arithmetic_v<Value>)
    {
        return left.value_ == right;
    }
    friend std::string operator+(const std::string& left, const Property& right)
        requires std::is_same_v<Value, std::string>
    {
        return left + right.value_;
    }

  private:
    Element& owner_;
    Value value_;
    PropertyRules<Value> rules_;
};

/// A property that stores nothing of its own: it is read and written through other state.
template <class Value>
class DerivedProperty {
  public:
    DerivedProperty(std::function<Value()> read, std::function<void(const Value&)> write)
        : read_(std::move(read)), write_(std::move(write)) {}
    DerivedProperty(const DerivedProperty&) = delete;
    ~DerivedProperty() = default;

    Value get() const { return read_(); }
    operator Value() const { return read_(); }

    DerivedProperty& operator=(const DerivedProperty& other) { return *this = other.get(); }
    DerivedProperty& operator=(const Value& value) {
        write_(value);
        return *this;
    }

    friend bool operator==(const DerivedProperty& left, const Property<Value>& right)
        requires(!std::is_arithmetic_v<Value>)
    {
        return left.get() == right.get();
    }
    friend bool operator==(const DerivedProperty& left, const DerivedProperty& right)
        requires(!std::is_arithmetic_v<Value>)
    {
        return left.get() == right.get();
    }
    friend bool operator==(const DerivedProperty& left, const Value& right)
        requires(!std::is_arithmetic_v<Value>)
    {
        return left.get() == right;
    }
    friend std::string operator+(const std::string& left, const DerivedProperty& right)
        requires std::is_same_v<Value, std::string>
    {
        return left + right.get();
    }

  private:
    std::function<Value()> read_;
    std::function<void(const Value&)> write_;
};

} // namespace lookfar
