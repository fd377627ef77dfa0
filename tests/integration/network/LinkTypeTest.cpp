#include "NetworkTest.h"

namespace klx::network {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using LinkType = NetworkTest;

/** A way of making the link "x0", a link that is no connection or only stands in for one. */
struct VirtualLink {
    const char* kind;
    const char* arguments;
};

std::ostream& operator<<(std::ostream& stream, const VirtualLink& link) {
    return stream << link.arguments;
}

std::string kindOf(const testing::TestParamInfo<VirtualLink>& info) {
    return info.param.kind;
}

class VirtualLinkTest : public NetworkTest, public testing::WithParamInterface<VirtualLink> {
protected:
    void leadOutOverIt(int metric) {
        scene().ip("link set x0 up");
        scene().ip("addr add 10.9.0.2/24 dev x0");
        scene().ip("route add default dev x0 metric " + std::to_string(metric));
    }
};

class Ignored : public VirtualLinkTest {};
class StandIn : public VirtualLinkTest {};

TEST_P(Ignored, IsNoConnectionEvenUnderTheDefaultRoute) {
    scene().addCable("far0");
    KLX_NEED_LINK(scene(), GetParam().arguments);
    leadOutOverIt(100);
    const Connection connection;
    EXPECT_EQ(connection.type(), said(0));
    EXPECT_THAT(connection.names(), IsEmpty());
}

TEST_P(Ignored, LeavesTheConnectionToTheNextMetric) {
    scene().addCable("far0");
    KLX_NEED_LINK(scene(), GetParam().arguments);
    leadOutOverIt(1);
    addWayOut("eth0", 0, "metric 100");
    EXPECT_EQ(name(Connection().current()), said("eth0"));
}

INSTANTIATE_TEST_SUITE_P(Links, Ignored,
                         testing::Values(VirtualLink{"Bridge", "link add x0 type bridge"},
                                         VirtualLink{"Tun", "tuntap add x0 mode tun"},
                                         VirtualLink{"Tap", "tuntap add x0 mode tap"},
                                         VirtualLink{"Vxlan",
                                                     "link add x0 type vxlan id 7 dstport 4789"},
                                         VirtualLink{"Wireguard", "link add x0 type wireguard"},
                                         VirtualLink{"Gre", "link add x0 type gretap "
                                                            "remote 192.0.2.1 local 192.0.2.2"},
                                         VirtualLink{"Dummy", "link add x0 type dummy"},
                                         VirtualLink{"Ifb", "link add x0 type ifb"}),
                         kindOf);

TEST_P(StandIn, IsAnEthernetConnectionUnderTheDefaultRoute) {
    scene().addCable("far0");
    KLX_NEED_LINK(scene(), GetParam().arguments);
    leadOutOverIt(100);
    const Connection connection;
    EXPECT_EQ(connection.type(), said(ethernet));
    EXPECT_THAT(connection.names(), ElementsAre("x0"));
}

TEST_P(StandIn, IsNoConnectionWithoutTheDefaultRoute) {
    scene().addCable("far0");
    KLX_NEED_LINK(scene(), GetParam().arguments);
    leadOutOverIt(100);
    scene().ip("route del default");
    EXPECT_THAT(Connection().names(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Links, StandIn,
    testing::Values(VirtualLink{"Veth", "link add x0 type veth peer name x1"},
                    VirtualLink{"Macvlan", "link add x0 link far0 type macvlan"},
                    VirtualLink{"Ipvlan", "link add x0 link far0 type ipvlan"},
                    VirtualLink{"Vlan", "link add x0 link far0 type vlan id 5"},
                    VirtualLink{"Bond", "link add x0 type bond"}),
    kindOf);

TEST_F(LinkType, OfLoopbackIsNone) {
    scene().ip("route add default dev lo");
    const Connection connection;
    EXPECT_EQ(connection.type(), said(0));
    EXPECT_THAT(connection.names(), IsEmpty());
}

TEST_F(LinkType, OfAContainersNearEndIsNone) {
    scene().addCable("eth0");
    scene().ip("link add docker0 type bridge");
    scene().ip("link set docker0 up");
    scene().ip("link set eth0 master docker0");
    scene().ip("addr add 172.17.0.1/16 dev docker0");
    EXPECT_THAT(Connection().names(), IsEmpty());
}

TEST_F(LinkType, IsWifiByItsDeviceType) {
    addWayOut("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\nINTERFACE=wlan0\n");
    const Connection connection;
    EXPECT_EQ(connection.type(), said(wifi));
    EXPECT_EQ(type(connection.current()), said(CONNECTION_PROFILE_TYPE_WIFI));
}

TEST_F(LinkType, IsWifiByTheFolderWireless) {
    addWayOut("wlan0");
    scene().describe("wlan0", "INTERFACE=wlan0\n", {"wireless"});
    EXPECT_EQ(Connection().type(), said(wifi));
}

TEST_F(LinkType, IsWifiByTheFolderPhy80211) {
    addWayOut("wlan0");
    scene().describe("wlan0", "INTERFACE=wlan0\n", {"phy80211"});
    EXPECT_EQ(Connection().type(), said(wifi));
}

TEST_F(LinkType, IsNotTakenFromTheNameOfTheLink) {
    addWayOut("wlan0");
    EXPECT_EQ(Connection().type(), said(ethernet));
}

TEST_F(LinkType, IsCellularByItsDeviceType) {
    addWayOut("wwan0");
    scene().describe("wwan0", "DEVTYPE=wwan\n");
    const Connection connection;
    EXPECT_EQ(connection.type(), said(cellular));
    EXPECT_EQ(type(connection.current()), said(CONNECTION_PROFILE_TYPE_CELLULAR));
}

TEST_F(LinkType, IsBluetoothByItsDeviceType) {
    addWayOut("bnep0");
    scene().describe("bnep0", "DEVTYPE=bluetooth\n");
    const Connection connection;
    EXPECT_EQ(connection.type(), said(bluetooth));
    EXPECT_EQ(type(connection.current()), said(CONNECTION_PROFILE_TYPE_BLUETOOTH));
}

TEST_F(LinkType, IsNotTakenFromAnotherLinkOfTheSameName) {
    addWayOut("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\nINTERFACE=wlan0\nIFINDEX=4711\n", {"wireless"});
    EXPECT_EQ(Connection().type(), said(ethernet));
}

TEST_F(LinkType, OfAModemWithoutHardwareAddressIsCellular) {
    KLX_NEED_LINK(scene(), "tuntap add wwan0 mode tun");
    scene().describe("wwan0", "DEVTYPE=wwan\n");
    const Connection connection;
    EXPECT_THAT(connection.names(), ElementsAre("wwan0"));
    EXPECT_EQ(connection.mac(cellular), failed(NetworkError::NoHardwareAddress));
}

} // namespace
} // namespace klx::network
