#pragma once

#include "runtime/message_box.h"
#include "runtime/pictures/picture.h"
#include "runtime/transfer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace lookfar {

class Disk;
class RemoteAccessService;
class WindowSystem;

using Instant = std::chrono::steady_clock::time_point;

/// What a machine must give for the runtime to live on it, beside what shows its windows. It is
/// called on the one thread that runs the handlers.
class Platform {
  public:
    virtual ~Platform() = default;

    // Time.

    /// A clock that only goes forward.
    virtual Instant now() const = 0;
    /// The time since local midnight.
    virtual std::chrono::milliseconds time_of_day() const = 0;
    /// The local date and time.
    virtual std::chrono::local_seconds local_time() const = 0;
    /// Sets what `wake_at` calls.
    virtual void set_wake_handler(std::function<void()> handler) = 0;
    /// Calls the wake handler once, from the message loop, as soon as the instant has come. This
    /// replaces the instant that was set before; without an instant nothing is called.
    virtual void wake_at(std::optional<Instant> instant) = 0;

    // Waiting.

    /// Runs the message loop until the program ends.
    virtual void run() = 0;
    /// Delivers the events that are there, and returns.
    virtual void deliver_pending() = 0;
    /// Runs the message loop until `done`, which is asked after every event, gives true.
    virtual void wait_until(const std::function<bool()>& done) = 0;
    /// Ends the program on the spot: no handler runs after it.
    [[noreturn]] virtual void end() = 0;

    // The machine.

    virtual WindowSystem& windows() = 0;
    virtual Disk& disk() = 0;
    /// Starts a transfer and reports its outcome from the message loop. Throws a Failure where none
    /// can be started.
    virtual std::unique_ptr<Transfer> start_transfer(TransferRequest request,
                                                     TransferDone done) = 0;

    /// Hands an address to the user's default program for its scheme; a failure is not noticed.
    virtual void open_link(const std::string& address) = 0;
    /// Gives the clipboard a copy of the picture as it is now.
    virtual void copy_picture(const Picture& picture) = 0;
    /// Lets the user drag the picture to another program, which gets it as it is now, or as the
    /// file that its camera sent; returns at once. To be called while a mouse button is held.
    virtual void drag_picture(PictureReference picture) = 0;
    /// The service that knows of dial-up connections; none on most platforms.
    virtual RemoteAccessService* remote_access() { return nullptr; }

    /// Shows a modal box, runs the message loop under it, and gives back the button pressed.
    virtual MessageBoxAnswer ask(const MessageBox& box) = 0;
    /// An untrapped failure has ended a handler.
    virtual void report_untrapped(const Failure& failure) = 0;
};

} // namespace lookfar
