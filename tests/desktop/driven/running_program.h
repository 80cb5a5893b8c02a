#pragma once

#include <QProcess>
#include <QProcessEnvironment>

#include <optional>

namespace lookfar::driven {

/// The real program in a process of its own, in the current directory. The process ends with this
/// object at the latest.
class RunningProgram {
  public:
    /// Variables take precedence over those of the tests' own environment. Throws
    /// std::runtime_error where the program cannot be started.
    explicit RunningProgram(const QProcessEnvironment& variables = {});
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram();

    qint64 process() const { return process_id_; }
    bool has_ended();
    /// Nothing while the program runs and after it was ended by a signal.
    std::optional<int> exit_status();

  private:
    QProcess process_;
    qint64 process_id_;
};

} // namespace lookfar::driven
