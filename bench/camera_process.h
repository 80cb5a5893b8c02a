#pragma once

#include "runtime/transfer.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace lookfar::bench {

/// A camera in a process of its own, so that its work is not counted as the viewer's. Made
/// before any thread is started.
class CameraProcess {
  public:
    /// Serves the pictures in turn until this goes, as a camera never answers twice alike.
    explicit CameraProcess(const std::vector<Bytes>& pictures);
    CameraProcess(const CameraProcess&) = delete;
    CameraProcess& operator=(const CameraProcess&) = delete;
    ~CameraProcess();

    const std::string& url() const { return url_; }

  private:
    pid_t process_;
    std::string url_;
};

} // namespace lookfar::bench
