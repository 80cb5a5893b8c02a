#pragma once

#include "runtime/form.h"
#include "runtime/runtime.h"

#include <functional>
#include <memory>
#include <utility>

namespace lookfar {

/// The one instance of a window class. The first use through `->` or `*` makes and loads it,
/// inside that expression: `Initialize`, then `Load`. Handlers that run meanwhile reach the same
/// instance. A window that was unloaded is made anew at its next use.
template <class Kind>
class Window {
  public:
    using Maker = std::function<std::unique_ptr<Kind>()>;

    Window(Runtime& runtime, Maker make) : runtime_(runtime), make_(std::move(make)) {}

    Kind& operator*() {
        if (!instance_)
            load();
        return *instance_;
    }
    Kind* operator->() { return &operator*(); }

    bool is_loaded() const { return instance_ != nullptr; }

  private:
    /// Cold, since the compiler would else lay its code into every use of a window.
    [[gnu::cold]] void load() {
        instance_ = make_();
        instance_->release_ = [this] { runtime_.retire(std::move(instance_)); };
        instance_->Initialize.raise();
        instance_->start_timers();
        instance_->Load.raise();
    }

    Runtime& runtime_;
    Maker make_;
    std::unique_ptr<Kind> instance_;
};

} // namespace lookfar
