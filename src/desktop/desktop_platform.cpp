#include "desktop/desktop_platform.h"

#include "decoder/decoder_client.h"
#include "desktop/accessible/accessibility.h"
#include "desktop/accessible/change_reporter.h"
#include "desktop/bus/patient_bus.h"
#include "desktop/display_required.h"
#include "desktop/end_signals.h"
#include "desktop/exchange/picture_drag.h"
#include "desktop/mailbox.h"
#include "desktop/message_boxes.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/pointer_rest.h"
#include "desktop/screen_wakefulness.h"
#include "desktop/style/compact_style.h"
#include "desktop/window/input_synchroniser.h"
#include "desktop/window/windows.h"
#include "pictures/image_pixels.h"
#include "runtime/files/disk.h"
#include "transfers/curl_transfers.h"

#include <QApplication>
#include <QClipboard>
#include <QDBusConnection>
#include <QDateTime>
#include <QDesktopServices>
#include <QPixmap>
#include <QTime>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace lookfar {

namespace {

QIcon icon_of(const std::vector<std::span<const std::uint8_t>>& files) {
    QIcon icon;
    for (const auto& file : files)
        icon.addPixmap(QPixmap::fromImage(png_image(file)));
    return icon;
}

void prepare() {
    QApplication::setApplicationName(QStringLiteral("Lookfar"));
    // By this name a desktop finds the desktop entry, and so the icon, of a window.
    QGuiApplication::setDesktopFileName(QStringLiteral(LOOKFAR_APPLICATION_ID));
    QApplication::setStyle(desktop::owned_by_qt<desktop::CompactStyle>());
    QGuiApplication::setQuitOnLastWindowClosed(false);
    desktop::make_windows_readable();
    // Numbers are written with a decimal point wherever the user lives.
    std::setlocale(LC_NUMERIC, "C");
}

} // namespace

struct DesktopPlatform::Parts {
    Parts(int& argument_count, char** arguments,
          const std::vector<std::span<const std::uint8_t>>& icons)
        : application(argument_count, arguments),
          windows([icons] { return icon_of(icons); }),
          input_synchroniser(windows) {
        prepare();
        // Qt connects when it first asks for the bus.
        QDBusConnection::sessionBus();
        patient_bus.shut_door();
        application.installEventFilter(&input_synchroniser);
        application.installEventFilter(&screen_wakefulness);
        application.installEventFilter(&pointer_rest);
        display_required.reset();
    }

    desktop::PatientBus patient_bus;
    /// Until all parts are made.
    std::optional<desktop::DisplayRequired> display_required{std::in_place};
    QApplication application;
    desktop::Windows windows;
    desktop::ChangeReporter change_reporter{windows};
    desktop::InputSynchroniser input_synchroniser;
    desktop::ScreenWakefulness screen_wakefulness;
    desktop::PointerRest pointer_rest;
    desktop::PictureDrag picture_drag;
    std::optional<desktop::EndSignals> end_signals;
    std::function<void()> wake_handler;
    QTimer wake_timer;
    desktop::Mailbox mailbox;
    std::unique_ptr<Disk> disk = make_posix_disk();
    /// Nothing until the first transfer: to start libcurl and the decoder takes time that the
    /// windows need. The last member, so that its thread goes before what it posts to.
    std::unique_ptr<CurlTransfers> transfers;
};

DesktopPlatform::DesktopPlatform(int& argument_count, char** arguments,
                                 const std::vector<std::span<const std::uint8_t>>& icons,
                                 std::filesystem::path decoder)
    : parts_(std::make_unique<Parts>(argument_count, arguments, icons)),
      decoder_(std::move(decoder)) {
    parts_->wake_timer.setSingleShot(true);
    parts_->wake_timer.setTimerType(Qt::PreciseTimer);
    // Queued, so that what the user has done by then comes before the ticks. They may take long,
    // and may let the loop run, where the next ones are due already.
    parts_->wake_timer.callOnTimeout(
        &parts_->wake_timer,
        [this] {
            if (const auto handler = parts_->wake_handler)
                handler();
            parts_->windows.synchronise();
        },
        Qt::QueuedConnection);
}

DesktopPlatform::~DesktopPlatform() = default;

Instant DesktopPlatform::now() const {
    return std::chrono::steady_clock::now();
}

std::chrono::milliseconds DesktopPlatform::time_of_day() const {
    return std::chrono::milliseconds(QTime::currentTime().msecsSinceStartOfDay());
}

std::chrono::local_seconds DesktopPlatform::local_time() const {
    const QDateTime now = QDateTime::currentDateTime();
    const std::chrono::seconds since_utc(now.offsetFromUtc());
    return std::chrono::local_seconds(std::chrono::seconds(now.toSecsSinceEpoch()) + since_utc);
}

void DesktopPlatform::set_wake_handler(std::function<void()> handler) {
    parts_->wake_handler = std::move(handler);
}

void DesktopPlatform::wake_at(std::optional<Instant> instant) {
    if (!instant) {
        parts_->wake_timer.stop();
        return;
    }
    using std::chrono::milliseconds;
    const auto wait = std::chrono::ceil<milliseconds>(*instant - now());
    parts_->wake_timer.start(std::max(wait, milliseconds::zero()));
}

void DesktopPlatform::run() {
    QApplication::exec();
}

void DesktopPlatform::deliver_pending() {
    // One pass may serve one source of events only; a bound keeps a busy source from holding the
    // caller up.
    constexpr int longest_milliseconds = 5;
    QCoreApplication::processEvents(QEventLoop::AllEvents, longest_milliseconds);
}

void DesktopPlatform::wait_until(const std::function<bool()>& done) {
    while (!done())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void DesktopPlatform::end() {
    parts_->picture_drag.end();
    parts_->screen_wakefulness.end();
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

WindowSystem& DesktopPlatform::windows() {
    return parts_->windows;
}

Disk& DesktopPlatform::disk() {
    return *parts_->disk;
}

std::unique_ptr<CurlTransfers> DesktopPlatform::make_transfers() {
    return std::make_unique<CurlTransfers>(
        [&mailbox = parts_->mailbox](std::function<void()> work) { mailbox.post(std::move(work)); },
        std::make_unique<decoder::DecoderClient>(decoder_));
}

std::unique_ptr<Transfer> DesktopPlatform::start_transfer(TransferRequest request,
                                                          TransferDone done) {
    if (!parts_->transfers)
        parts_->transfers = make_transfers();
    return parts_->transfers->start(std::move(request), std::move(done));
}

void DesktopPlatform::open_link(const std::string& address) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

void DesktopPlatform::copy_picture(const Picture& picture) {
    QGuiApplication::clipboard()->setMimeData(desktop::picture_data(picture).release());
}

void DesktopPlatform::drag_picture(PictureReference picture) {
    parts_->picture_drag.start(std::move(picture));
}

MessageBoxAnswer DesktopPlatform::ask(const MessageBox& box) {
    parts_->windows.synchronise();
    return desktop::ask(box, QApplication::activeWindow());
}

void DesktopPlatform::report_untrapped(const Failure& failure) {
    qWarning("Untrapped failure %d: %s", failure.Number, failure.Description.c_str());
}

void DesktopPlatform::set_end_handler(std::function<void()> handler) {
    parts_->end_signals.emplace(std::move(handler));
}

desktop::Mailbox& DesktopPlatform::mailbox() {
    return parts_->mailbox;
}

desktop::Windows& DesktopPlatform::windows_on_screen() {
    return parts_->windows;
}

} // namespace lookfar
