#pragma once

#include "runtime/transfer.h"

#include <atomic>

namespace lookfar {

/// What the main thread and the worker share of one transfer.
struct TransferTicket {
    TransferRequest request;
    /// Touched on the main thread only; empty once the transfer is reported or abandoned.
    TransferDone done;
    /// Written by the worker before it posts the report, read on the main thread after.
    TransferOutcome outcome;
    std::atomic<bool> is_abandoned = false;
};

} // namespace lookfar
