#pragma once

namespace lookfar {

class Runtime;

/// Anything with properties: a window, a control, a timer. Tells the runtime when one of its
/// properties has changed.
class Element {
  public:
    explicit Element(Runtime& host) : runtime(host) {}
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;
    virtual ~Element();

    /// Counts the change and lets the platform show it at its next opportunity.
    void changed();

    Runtime& runtime;
};

} // namespace lookfar
