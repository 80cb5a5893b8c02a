#include "runtime/remote_access.h"
#include "support/started.h"

namespace lookfar::testing {
namespace {

struct ScriptedService : RemoteAccessService {
    std::uint32_t connections = 0;
    std::vector<std::uint32_t> asked_for;

    std::uint32_t RasEnumConnectionsA(std::span<RASCONN> records, std::uint32_t& byte_count,
                                      std::uint32_t& count) override {
        EXPECT_EQ(byte_count, 105472U);
        EXPECT_EQ(records.size_bytes(), byte_count);
        EXPECT_EQ(records[0].dwSize, 412U);
        records[0].hrasconn = 77;
        count = connections;
        return 1;
    }
    std::uint32_t RasGetConnectStatusA(std::uint32_t hrasconn, RASCONNSTATUS& status) override {
        EXPECT_EQ(status.dwSize, 160U);
        asked_for.push_back(hrasconn);
        return 1;
    }
};

using LinkStatus = Started<1>;

TEST_F(LinkStatus, AsksForTheFirstConnectionOnlyWhereThereIsOne) {
    EXPECT_TRUE(Form1->DFÜStatus()) << "without a service there is nothing to ask";
    ScriptedService service;
    platform.remote_access_service = &service;
    EXPECT_TRUE(Form1->DFÜStatus());
    EXPECT_TRUE(service.asked_for.empty());
    service.connections = 2;
    EXPECT_TRUE(Form1->DFÜStatus());
    EXPECT_EQ(service.asked_for, std::vector<std::uint32_t>{77});
}

} // namespace
} // namespace lookfar::testing
