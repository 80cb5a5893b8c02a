#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace lookfar {

/// A dial-up connection in force, as the remote access service tells it; texts end in a zero byte.
struct RASCONN {
    std::uint32_t dwSize = 0;
    std::uint32_t hrasconn = 0;
    std::array<char, 257> szEntryName{};
    std::array<char, 17> szDeviceType{};
    std::array<char, 129> szDeviceName{};
};
static_assert(sizeof(RASCONN) == 412);

/// The state of a dial-up connection.
struct RASCONNSTATUS {
    std::uint32_t dwSize = 0;
    std::uint32_t rasconnstate = 0;
    std::uint32_t dwError = 0;
    std::array<char, 17> szDeviceType{};
    std::array<char, 129> szDeviceName{};
};
static_assert(sizeof(RASCONNSTATUS) == 160);

/// The operating system's remote access service. The results are its return codes, 0 for success.
class RemoteAccessService {
  public:
    virtual ~RemoteAccessService() = default;

    /// Fills in the connections in force. `byte_count` is the buffer's size in bytes on the way
    /// in and the size needed on the way out. The first record's `dwSize` is set by the caller.
    virtual std::uint32_t RasEnumConnectionsA(std::span<RASCONN> connections,
                                              std::uint32_t& byte_count, std::uint32_t& count) = 0;
    virtual std::uint32_t RasGetConnectStatusA(std::uint32_t hrasconn, RASCONNSTATUS& status) = 0;
};

} // namespace lookfar
