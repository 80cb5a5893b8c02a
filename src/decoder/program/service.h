#pragma once

namespace lookfar::decoder {

/// Decodes the pictures that are ordered on the socket, until the other side is gone.
void serve(int socket);

} // namespace lookfar::decoder
