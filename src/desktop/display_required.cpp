#include "desktop/display_required.h"

#include <QByteArray>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace lookfar::desktop {

namespace {

QByteArray setting(const char* name) {
    const QByteArray value = qgetenv(name);
    return value.isEmpty() ? name + QByteArray(" is not set") : name + (" is '" + value + "'");
}

[[noreturn]] void end_without_display() {
    std::fprintf(stderr, "lookfar: There is no display to show windows on: %s, %s.\n",
                 setting("DISPLAY").constData(), setting("WAYLAND_DISPLAY").constData());
    std::_Exit(EXIT_FAILURE);
}

/// What Qt says of its search for a display would only stand in the way of that line.
bool is_of_the_search(const QMessageLogContext& context) {
    return context.category && std::string_view(context.category).starts_with("qt.qpa");
}

void handle_message(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg)
        end_without_display();
    if (!is_of_the_search(context))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

} // namespace

DisplayRequired::DisplayRequired() {
    qInstallMessageHandler(handle_message);
}

DisplayRequired::~DisplayRequired() {
    qInstallMessageHandler(nullptr);
}

} // namespace lookfar::desktop
