#include "acquisition/main_window.h"

#include "runtime/remote_access.h"
#include "runtime/runtime.h"

#include <vector>

namespace lookfar {

bool MainWindow::DFÜStatus() {
    RemoteAccessService* const service = runtime.remote_access();
    if (!service)
        return true;
    constexpr std::uint32_t max_connections = 256;
    std::vector<RASCONN> connections(max_connections);
    connections.front().dwSize = sizeof(RASCONN);
    std::uint32_t byte_count = connections.front().dwSize * max_connections;
    std::uint32_t count = 0;
    service->RasEnumConnectionsA(connections, byte_count, count);
    if (count != 0) {
        RASCONNSTATUS status;
        status.dwSize = sizeof(RASCONNSTATUS);
        service->RasGetConnectStatusA(connections.front().hrasconn, status);
    }
    return true;
}

} // namespace lookfar
