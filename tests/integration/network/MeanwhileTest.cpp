#include "Meanwhile.h"
#include "NetworkTest.h"

#include <net/if.h>
#include <sched.h>

#include <filesystem>
#include <thread>

namespace klx::network {
namespace {

using testing::ElementsAre;

using LinkThatIsGone = NetworkTest;
using ChangeAmidALook = NetworkTest;

/** A change that one sort of the kernel's news tells of. */
struct Change {
    const char* name;
    const char* arguments;
};

std::ostream& operator<<(std::ostream& stream, const Change& change) {
    return stream << change.name;
}

class SeenChange : public NetworkTest, public testing::WithParamInterface<Change> {};

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

// As udev does right after a stick was plugged in.
TEST_F(ChangeAmidALook, ShowsALinkUnderItsNewName) {
    scene().ip("link add wlan0 type veth");
    scene().describe("wlan0", "DEVTYPE=wlan\n");
    const Meanwhile meanwhile(AF_INET6, [&](int look) {
        if (look == 0) {
            scene().ip("link set wlan0 name wlan7");
            std::filesystem::rename("/sys/class/net/wlan0", "/sys/class/net/wlan7");
        }
    });
    const Connection connection;
    EXPECT_THAT(connection.names(), ElementsAre("wlan7"));
    EXPECT_EQ(connection.wifiState(), said(1));
}

TEST_F(ChangeAmidALook, ShowsNoWayOutWithoutItsAddress) {
    addWayOut("eth0", 0, "metric 100");
    scene().addCable("eth1");
    const Meanwhile meanwhile(AF_INET, [&](int look) {
        if (look == 0) {
            scene().ip("addr add 10.0.1.2/24 dev eth1");
            scene().ip("route add default via 10.0.1.1 dev eth1 metric 1");
        }
    });
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(name(profile), said("eth1"));
    EXPECT_EQ(address(profile), said("10.0.1.2"));
}

TEST_P(SeenChange, IsLookedAtAgain) {
    addWayOut("eth0");
    const Meanwhile meanwhile(AF_INET6, [&](int look) {
        if (look == 0) {
            scene().ip(GetParam().arguments);
        }
    });
    EXPECT_EQ(Connection().type(), said(ethernet));
    EXPECT_GE(meanwhile.looks(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, SeenChange,
    testing::Values(Change{"Link", "link set eth0 alias new"},
                    Change{"Ipv4Address",
                           "addr change 10.0.0.2/24 dev eth0 valid_lft 900 preferred_lft 900"},
                    Change{"Ipv6Address", "-6 addr add 2001:db8::2/128 dev eth0 nodad"},
                    Change{"Ipv4Route", "route add 10.7.0.0/16 dev eth0"},
                    Change{"Ipv6Route", "-6 route add unreachable 2001:db8:7::/48"}),
    testing::PrintToStringParamName());

TEST_F(ChangeAmidALook, IsNotWaitedOutForEver) {
    constexpr int handful = 10;
    addWayOut("eth0");
    std::string last;
    const Meanwhile meanwhile(AF_INET, [&](int look) {
        last = "10.0.0." + std::to_string(10 + look);
        scene().ip("route change default via " + last + " dev eth0");
    });
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(gateway(profile), said(last));
    EXPECT_GT(meanwhile.looks(), 1);
    EXPECT_LE(meanwhile.looks(), handful);
}

// The kernel may have news of its own for a while after links came up.
TEST_F(ChangeAmidALook, IsNotSeenWhereThereIsNone) {
    constexpr int questions = 10;
    const Connection connection;
    const Meanwhile meanwhile(AF_INET, [](int) {});
    int singleLooks = 0;
    for (int i = 0; i < questions; ++i) {
        const int before = meanwhile.looks();
        EXPECT_EQ(connection.type(), said(0));
        singleLooks += meanwhile.looks() == before + 1 ? 1 : 0;
    }
    EXPECT_GT(singleLooks, questions / 2);
}

} // namespace
} // namespace klx::network
