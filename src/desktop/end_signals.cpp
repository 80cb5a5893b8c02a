#include "desktop/end_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace lookfar::desktop {

namespace {

constexpr std::array end_signals{SIGTERM, SIGINT, SIGHUP};

/// What the signal handler writes to. It can be told nothing else than what is global.
volatile std::sig_atomic_t told_descriptor = -1;

void tell(int /*signal*/) {
    const int error = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(told_descriptor, &one, sizeof one);
    errno = error;
}

void set_handler(int signal, void (*handler)(int)) {
    if (std::signal(signal, handler) == SIG_IGN)
        std::signal(signal, SIG_IGN);
}

} // namespace

EndSignals::EndSignals(std::function<void()> asked)
    : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      notifier_(descriptor_.number(), QSocketNotifier::Read) {
    if (!descriptor_)
        return;
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                     [this, asked = std::move(asked)] {
                         notifier_.setEnabled(false);
                         asked();
                     });
    told_descriptor = descriptor_.number();
    for (const int signal : end_signals)
        set_handler(signal, tell);
}

EndSignals::~EndSignals() {
    for (const int signal : end_signals)
        set_handler(signal, SIG_DFL);
}

} // namespace lookfar::desktop
