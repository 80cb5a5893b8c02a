#pragma once

#include "runtime/platform.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace lookfar {

namespace desktop {
class Mailbox;
class Windows;
} // namespace desktop

class CurlTransfers;

/// The desktop: native windows and widgets, the screen, the network and the disk of this machine.
/// There is one in a process, on the main thread.
class DesktopPlatform : public Platform {
  public:
    /// The icons are PNG files of the application's icon in several sizes. Pictures are decoded by
    /// the program in the file `decoder`. Arguments that the windowing system knows are taken out
    /// of `arguments`. Without a display the program ends with a line on standard error and
    /// status 1.
    DesktopPlatform(int& argument_count, char** arguments,
                    const std::vector<std::span<const std::uint8_t>>& icons,
                    std::filesystem::path decoder);
    ~DesktopPlatform() override;

    Instant now() const override;
    std::chrono::milliseconds time_of_day() const override;
    std::chrono::local_seconds local_time() const override;
    void set_wake_handler(std::function<void()> handler) override;
    void wake_at(std::optional<Instant> instant) override;

    void run() override;
    void deliver_pending() override;
    void wait_until(const std::function<bool()>& done) override;
    [[noreturn]] void end() override;

    WindowSystem& windows() override;
    Disk& disk() override;
    std::unique_ptr<Transfer> start_transfer(TransferRequest request, TransferDone done) override;

    void open_link(const std::string& address) override;
    void copy_picture(const Picture& picture) override;
    void drag_picture(PictureReference picture) override;

    MessageBoxAnswer ask(const MessageBox& box) override;
    void report_untrapped(const Failure& failure) override;

    /// Sets what a signal calls that asks the program to end (`EndSignals`). Until then such a
    /// signal ends it on the spot.
    void set_end_handler(std::function<void()> handler);

    /// Takes work for the message loop from any thread.
    desktop::Mailbox& mailbox();
    /// The windows on the screen; for tests and benchmarks.
    desktop::Windows& windows_on_screen();

  private:
    struct Parts;

    std::unique_ptr<CurlTransfers> make_transfers();

    std::unique_ptr<Parts> parts_;
    const std::filesystem::path decoder_;
};

} // namespace lookfar
