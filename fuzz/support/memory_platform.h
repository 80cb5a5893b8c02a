#pragma once

#include "fuzz/support/memory_disk.h"
#include "support/scripted_platform.h"

namespace lookfar::fuzz {

/// A scripted machine that touches no disk.
class MemoryPlatform : public testing::ScriptedPlatform {
  public:
    MemoryDisk& disk() override { return memory_disk_; }

  private:
    MemoryDisk memory_disk_;
};

} // namespace lookfar::fuzz
