#include "NetworkTest.h"

namespace klx::network {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int absent = 0;
constexpr int disconnected = 1;
constexpr int connected = 2;

using CurrentConnection = NetworkTest;
using RegisteredConnections = NetworkTest;
using ConnectionState = NetworkTest;

TEST_F(CurrentConnection, IsNoneWithoutLinks) {
    const Connection connection;
    EXPECT_EQ(connection.type(), said(0));
    EXPECT_EQ(connection.currentError(), static_cast<int>(NetworkError::NoConnection));
    EXPECT_THAT(connection.names(), IsEmpty());
}

TEST_F(CurrentConnection, IsTheCableUnderTheDefaultRoute) {
    addWayOut("eth0");
    const Connection connection;
    EXPECT_EQ(connection.type(), said(ethernet));
    EXPECT_EQ(type(connection.current()), said(CONNECTION_PROFILE_TYPE_ETHERNET));
    EXPECT_EQ(name(connection.current()), said("eth0"));
}

TEST_F(CurrentConnection, IsNoneWithoutADefaultRoute) {
    scene().addCable("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\n");
    scene().ip("addr add 10.0.0.2/24 dev wlan0");
    const Connection connection;
    EXPECT_EQ(connection.type(), said(0));
    EXPECT_EQ(connection.currentError(), static_cast<int>(NetworkError::NoConnection));
    EXPECT_EQ(address(connection.profileOf("wlan0")), said("10.0.0.2"));
}

TEST_F(CurrentConnection, HasTheLowestMetricThoughItCameLast) {
    addWayOut("eth0", 0, "metric 600");
    addWayOut("eth1", 1, "metric 100");
    EXPECT_EQ(name(Connection().current()), said("eth1"));
}

TEST_F(CurrentConnection, HasTheLowestMetricThoughItCameFirst) {
    addWayOut("eth0", 0, "metric 100");
    addWayOut("eth1", 1, "metric 600");
    EXPECT_EQ(name(Connection().current()), said("eth0"));
}

TEST_F(CurrentConnection, WithoutAMetricComesBeforeThatWithOne) {
    addWayOut("eth0", 0, "metric 1");
    addWayOut("eth1", 1);
    EXPECT_EQ(name(Connection().current()), said("eth1"));
}

TEST_F(CurrentConnection, IsTheFirstHopOfAMultipathRoute) {
    scene().addCable("eth0");
    scene().addCable("eth1");
    scene().ip("addr add 10.0.0.2/24 dev eth0");
    scene().ip("addr add 10.0.1.2/24 dev eth1");
    scene().ip("route add default nexthop via 10.0.1.1 dev eth1 nexthop via 10.0.0.1 dev eth0");
    const Connection connection;
    EXPECT_EQ(name(connection.current()), said("eth1"));
    EXPECT_EQ(gateway(connection.current()), said("10.0.1.1"));
    EXPECT_EQ(gateway(connection.profileOf("eth0")), said("10.0.0.1"));
}

TEST_F(CurrentConnection, IsNotMadeByARouteThatDiscards) {
    scene().ip("route add unreachable default metric 1");
    addWayOut("eth0", 0, "metric 100");
    EXPECT_EQ(name(Connection().current()), said("eth0"));
}

TEST_F(CurrentConnection, IsNotMadeByARouteOfAnotherTable) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/24 dev eth0");
    scene().ip("route add default via 10.0.0.1 dev eth0 table 100");
    EXPECT_EQ(Connection().type(), said(0));
}

TEST_F(CurrentConnection, IsNotMadeByARouteForMarkedTraffic) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/24 dev eth0");
    scene().ip("route add default tos 0x10 via 10.0.0.1 dev eth0");
    EXPECT_EQ(Connection().type(), said(0));
}

TEST_F(CurrentConnection, IsNotMadeByHalfOfTheInternet) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/24 dev eth0");
    scene().ip("route add 0.0.0.0/1 via 10.0.0.1 dev eth0");
    EXPECT_EQ(Connection().type(), said(0));
}

TEST_F(CurrentConnection, IsThatOfIpv4WhenIpv6HasALowerMetric) {
    addWayOut("eth0", 0, "metric 600");
    scene().addCable("eth1");
    scene().ip("-6 addr add 2001:db8::2/64 dev eth1 nodad");
    scene().ip("-6 route add default via 2001:db8::1 dev eth1 metric 100");
    EXPECT_EQ(name(Connection().current()), said("eth0"));
}

TEST_F(CurrentConnection, StaysWhenItsCableIsPulledAndItsRouteStays) {
    addWayOut("eth0");
    scene().ip("link set eth0-far down");
    scene().awaitRunning("eth0", false);
    const Connection connection;
    EXPECT_EQ(connection.type(), said(ethernet));
    EXPECT_EQ(connection.ethernetState(), said(disconnected));
}

TEST_F(CurrentConnection, IsNoneWhenTheKernelPassesOverPulledCables) {
    addWayOut("eth0");
    scene().ip("link set eth0-far down");
    scene().awaitRunning("eth0", false);
    scene().write("/proc/sys/net/ipv4/conf/all/ignore_routes_with_linkdown", "1");
    EXPECT_EQ(Connection().type(), said(0));
}

TEST_F(CurrentConnection, ThatWentAwayIsNotFoundAgain) {
    addWayOut("eth0");
    const Connection connection;
    connection_profile_h const profile = connection.current();
    scene().ip("link del eth0");
    EXPECT_EQ(connection.type(), said(0));
    EXPECT_EQ(connection.currentError(), static_cast<int>(NetworkError::NoConnection));
    EXPECT_EQ(address(profile), said("10.0.0.2")) << "a profile says what it said";
}

TEST_F(CurrentConnection, FollowsARename) {
    addWayOut("eth0");
    const Connection connection;
    EXPECT_EQ(name(connection.current()), said("eth0"));
    scene().ip("link set eth0 down");
    scene().ip("link set eth0 name living-room");
    scene().ip("link set living-room up");
    scene().ip("route add default via 10.0.0.1 dev living-room");
    EXPECT_EQ(name(connection.current()), said("living-room"));
}

TEST_F(RegisteredConnections, AreThereConnectedOrNot) {
    for (const char* const name : {"wlan0", "wlan1"}) {
        scene().addCable(name);
        scene().describe(name, "DEVTYPE=wlan\n");
    }
    scene().ip("link set wlan1 down");
    addWayOut("eth0");
    EXPECT_THAT(Connection().names(), ElementsAre("eth0", "wlan0", "wlan1"));
}

TEST_F(RegisteredConnections, BeginWithThoseThatAreConnected) {
    for (const char* const name : {"wlan0", "wlan1", "wlan2"}) {
        scene().addCable(name);
        scene().describe(name, "DEVTYPE=wlan\n");
    }
    scene().ip("addr add 10.0.2.2/24 dev wlan2");
    EXPECT_THAT(Connection().names(), ElementsAre("wlan2", "wlan0", "wlan1"));
}

TEST_F(ConnectionState, IsAbsentWithoutSuchALink) {
    const Connection connection;
    EXPECT_EQ(connection.wifiState(), said(absent));
    EXPECT_EQ(connection.cellularState(), said(absent));
    EXPECT_EQ(connection.ethernetState(), said(absent));
}

TEST_F(ConnectionState, OfEthernetIsConnectedWithCarrierAndAddress) {
    addWayOut("eth0");
    EXPECT_EQ(Connection().ethernetState(), said(connected));
}

TEST_F(ConnectionState, OfEthernetIsDisconnectedWithoutAddress) {
    scene().addCable("eth0");
    scene().ip("route add default dev eth0");
    EXPECT_EQ(Connection().ethernetState(), said(disconnected));
}

TEST_F(ConnectionState, OfWifiIsConnectedWithCarrierAndAddress) {
    scene().addCable("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\n");
    scene().ip("addr add 10.0.0.2/24 dev wlan0");
    EXPECT_EQ(Connection().wifiState(), said(connected));
    scene().ip("link set wlan0-far down");
    scene().awaitRunning("wlan0", false);
    EXPECT_EQ(Connection().wifiState(), said(disconnected));
}

TEST_F(ConnectionState, OfWifiIsDisconnectedWhenTheLinkIsSwitchedOff) {
    scene().addCable("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\n");
    scene().ip("addr add 10.0.0.2/24 dev wlan0");
    scene().ip("link set wlan0 down");
    const Connection connection;
    EXPECT_EQ(connection.wifiState(), said(disconnected));
    EXPECT_EQ(connection.type(), said(0));
    EXPECT_EQ(address(connection.profileOf("wlan0")), said("10.0.0.2"));
}

TEST_F(ConnectionState, OfCellularIsConnectedWithItsOwnNumber) {
    constexpr int cellularConnected = 5;
    scene().addCable("wwan0");
    scene().describe("wwan0", "DEVTYPE=wwan\n");
    EXPECT_EQ(Connection().cellularState(), said(disconnected));
    scene().ip("addr add 10.0.0.2/24 dev wwan0");
    EXPECT_EQ(Connection().cellularState(), said(cellularConnected));
}

TEST_F(ConnectionState, IsThatOfTheLinkInUseAmongSeveral) {
    addWayOut("eth0", 0, "metric 600");
    addWayOut("eth1", 1, "metric 100");
    scene().ip("addr flush dev eth1");
    scene().ip("route add default dev eth1 metric 100");
    EXPECT_EQ(Connection().ethernetState(), said(disconnected));
}

} // namespace
} // namespace klx::network
