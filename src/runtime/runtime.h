#pragma once

#include "runtime/files/files.h"
#include "runtime/look.h"
#include "runtime/platform.h"
#include "runtime/random.h"
#include "runtime/timer_queue.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace lookfar {

class Element;
class Form;
class WindowSystem;

/// What every handler leans on: the message loop, the timers, the files, numbers and clocks,
/// message boxes and pictures. One runtime serves one program on one platform.
class Runtime {
  public:
    explicit Runtime(Platform& platform, IdleTicks idle_ticks = IdleTicks::held_back);
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;
    ~Runtime();

    /// For windows and controls; handlers find what they need below.
    Platform& platform() { return platform_; }
    WindowSystem& windows() { return platform_.windows(); }
    TimerQueue& timers() { return timers_; }
    NumberedFiles& files() { return files_; }
    RandomNumbers& random() { return random_; }

    /// Lets the message loop deliver what is pending, due ticks included, then returns. A handler
    /// that is called so may call this again; beyond a small depth that delivers nothing, and what
    /// is pending comes when the loop runs next.
    void DoEvents();
    /// Stops the program on the spot.
    [[noreturn]] void End() { platform_.end(); }

    /// Shows a modal box and gives back the button pressed. The message loop runs meanwhile.
    MessageBoxAnswer MsgBox(const std::string& text, MessageBoxFlag flags,
                            const std::string& title = {});

    /// The current directory's absolute path.
    std::string CurrentDirectory() const { return platform_.disk().current_directory(); }
    /// Hands an address to the user's default program for its scheme; a failure is not noticed.
    void OpenLink(const std::string& address) { platform_.open_link(address); }
    /// Gives the clipboard a copy of the picture as it is now.
    void CopyPicture(const Picture& picture) { platform_.copy_picture(picture); }
    /// Lets the user drag the picture to another program; to be called while a mouse button is
    /// held. Returns at once.
    void DragPicture(PictureReference picture) { platform_.drag_picture(std::move(picture)); }
    /// The service that knows of dial-up connections; none on most platforms.
    RemoteAccessService* remote_access() { return platform_.remote_access(); }

    /// The size of the screen on which the main window stands, in twips.
    Size Screen() const;
    /// Its colours, in bits per pixel.
    short ScreenColourDepth() const;
    /// Seconds since local midnight, in single precision.
    float SecondsSinceMidnight() const;
    /// The local date and time.
    std::chrono::local_seconds LocalTime() const { return platform_.local_time(); }
    /// The time of day as hh:mm:ss, on a 24-hour clock.
    std::string TimeOfDay() const;

    /// Runs a handler for the message loop. A failure that the handler doesn't trap, or any other
    /// exception, ends it and is reported to the platform.
    void deliver(const std::function<void()>& handler);

    /// Serves the ticks that follow what a handler has changed.
    void serve_following() { timers_.serve_following(); }

    /// Called by every element whose property has changed.
    void element_changed(Element& element);

    /// Keeps an unloaded window until no handler runs any more, then destroys it.
    void retire(std::unique_ptr<Form> form);

  private:
    void run(const std::function<void()>& handler);

    Platform& platform_;
    NumberedFiles files_;
    RandomNumbers random_;
    int running_handlers_ = 0;
    int nested_do_events_ = 0;
    TimerQueue timers_;
    std::vector<std::unique_ptr<Form>> retired_;
};

} // namespace lookfar
