#pragma once

#include "desktop/bus/bus_link.h"
#include "runtime/descriptor.h"

#include <list>
#include <string>
#include <thread>

namespace lookfar::desktop {

/// Keeps a session bus that is silent from holding the program up.
///
/// Qt asks the bus when the first window is made, and waits for each answer, up to half a minute.
/// Where the bus answers at once, or there is none, it is left alone with that. Where it takes the
/// connection and says nothing, Qt is connected to stand-ins (`BusLink`) instead, so that it gets
/// its answers, and finds who is on the bus, assistive technology above all, once the bus answers.
class PatientBus {
  public:
    /// Waits for the bus, for a moment. Where stand-ins are needed, the address of the session's
    /// bus is theirs from here on. To be made before Qt asks for the bus.
    PatientBus();
    PatientBus(const PatientBus&) = delete;
    PatientBus& operator=(const PatientBus&) = delete;
    ~PatientBus();

    /// Gives the bus its address back, which other programs will be told. To be called once Qt has
    /// connected.
    void shut_door();

  private:
    struct Guest {
        Guest(Descriptor client, const std::string& bus, std::string accessibility_bus)
            : link(std::move(client), bus, std::move(accessibility_bus)),
              thread([this] { link.run(); }) {}

        BusLink link;
        std::thread thread;
    };

    void open_door();
    void let_in();

    std::string address_;
    std::string accessibility_bus_;
    Descriptor door_;
    std::thread doorkeeper_;
    /// The doorkeeper's, until that has gone.
    std::list<Guest> guests_;
};

} // namespace lookfar::desktop
