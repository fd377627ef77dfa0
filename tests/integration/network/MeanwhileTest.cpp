#include "Meanwhile.h"
#include "NetworkTest.h"

#include <net/if.h>
#include <sched.h>

#include <thread>

namespace klx::network {
namespace {

using LinkThatIsGone = NetworkTest;

// With it goes what sysfs said of its type; what has no type is Ethernet.
TEST_F(LinkThatIsGone, IsNotTakenForEthernet) {
    const auto plugIn = [&] {
        addWayOut("wlan0");
        const std::string index = std::to_string(::if_nametoindex("wlan0"));
        scene().describe("wlan0", "DEVTYPE=wlan\nINTERFACE=wlan0\nIFINDEX=" + index + '\n');
    };
    plugIn();
    const Connection connection;
    {
        const Meanwhile meanwhile(AF_INET6, [&](int) {
            scene().ip("link del wlan0");
            plugIn();
        });
        EXPECT_EQ(connection.type(), said(0));
        EXPECT_GE(meanwhile.looks(), 1);
    }
    EXPECT_EQ(connection.type(), said(wifi));
}

TEST_F(LinkThatIsGone, IsNoneForBeingUnknownWhereTheThreadIsNow) {
    addWayOut("eth0");
    const Connection connection;
    std::thread([&] {
        ASSERT_EQ(::unshare(CLONE_NEWNET), 0);
        EXPECT_EQ(connection.type(), said(ethernet));
    }).join();
}

} // namespace
} // namespace klx::network
