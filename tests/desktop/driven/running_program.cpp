#include "desktop/driven/running_program.h"

#include <QDir>

#include <stdexcept>

namespace lookfar::driven {

namespace {

QProcessEnvironment environment() {
    QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
    // Without a screen reader the program would keep its texts to itself.
    own.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    // The toolkit tells its texts only on a bus that it has found itself.
    own.remove("AT_SPI_BUS_ADDRESS");
    return own;
}

} // namespace

RunningProgram::RunningProgram(const QProcessEnvironment& variables) {
    QProcessEnvironment all = environment();
    all.insert(variables);
    process_.setProcessEnvironment(all);
    process_.setWorkingDirectory(QDir::currentPath());
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(LOOKFAR_PROGRAM, {});
    if (!process_.waitForStarted())
        throw std::runtime_error("The program cannot be started.");
    process_id_ = process_.processId();
}

RunningProgram::~RunningProgram() {
    process_.kill();
    process_.waitForFinished(-1);
}

bool RunningProgram::has_ended() {
    return process_.state() == QProcess::NotRunning || process_.waitForFinished(0);
}

std::optional<int> RunningProgram::exit_status() {
    if (!has_ended() || process_.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return process_.exitCode();
}

} // namespace lookfar::driven
