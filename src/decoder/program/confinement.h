#pragma once

namespace lookfar::decoder {

/// Locks the process in for good: whatever code runs in it from now on can compute, use memory up
/// to a limit, and exchange messages over the socket. It reaches no file, no network, no display
/// and no other process. Refusals of the system are errors for attempts to open a file, which
/// libraries live with; anything else that isn't allowed ends the process.
///
/// All that is needed must be loaded, and no other thread may run. Throws std::system_error where
/// the system can't lock a process in.
void confine(int socket);

} // namespace lookfar::decoder
