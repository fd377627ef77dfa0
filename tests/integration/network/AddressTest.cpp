#include "NetworkTest.h"

namespace klx::network {
namespace {

using Addresses = NetworkTest;
using HardwareAddress = NetworkTest;

struct Prefix {
    int length;
    const char* mask;
};

std::ostream& operator<<(std::ostream& stream, const Prefix& prefix) {
    return stream << prefix.mask;
}

class SubnetMask : public NetworkTest, public testing::WithParamInterface<Prefix> {};

TEST_P(SubnetMask, IsThePrefixInDottedForm) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/" + std::to_string(GetParam().length) + " dev eth0");
    scene().tryIp("route del default");
    scene().ip("route add default dev eth0 metric 5");
    EXPECT_EQ(mask(Connection().current()), said(GetParam().mask));
}

INSTANTIATE_TEST_SUITE_P(Lengths, SubnetMask,
                         testing::Values(Prefix{0, "0.0.0.0"}, Prefix{1, "128.0.0.0"},
                                         Prefix{8, "255.0.0.0"}, Prefix{23, "255.255.254.0"},
                                         Prefix{24, "255.255.255.0"}, Prefix{31, "255.255.255.254"},
                                         Prefix{32, "255.255.255.255"}),
                         [](const auto& test) { return std::to_string(test.param.length); });

TEST_F(Addresses, OfAStaticConnection) {
    addWayOut("eth0");
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(address(profile), said("10.0.0.2"));
    EXPECT_EQ(mask(profile), said("255.255.255.0"));
    EXPECT_EQ(gateway(profile), said("10.0.0.1"));
    EXPECT_EQ(configuration(profile), said(staticAddress));
}

TEST_F(Addresses, ThatExpireAreDynamic) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/24 dev eth0 valid_lft 600 preferred_lft 600");
    scene().ip("route add default via 10.0.0.1 dev eth0");
    EXPECT_EQ(configuration(Connection().current()), said(dynamicAddress));
}

TEST_F(Addresses, AreDynamicWhenDhcpMadeTheDefaultRoute) {
    addWayOut("eth0", 0, "proto 16");
    EXPECT_EQ(configuration(Connection().current()), said(dynamicAddress));
}

TEST_F(Addresses, AreStaticWhenDhcpMadeTheRouteOfAnotherLink) {
    addWayOut("eth0", 0, "metric 100 proto 16");
    addWayOut("eth1", 1, "metric 200 proto static");
    EXPECT_EQ(configuration(Connection().profileOf("eth1")), said(staticAddress));
}

TEST_F(Addresses, AreMissingOnALinkWithoutAny) {
    scene().addCable("eth0");
    scene().ip("route add default dev eth0");
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(connection.type(), said(ethernet));
    EXPECT_EQ(address(profile), failed(NetworkError::NoAddress));
    EXPECT_EQ(mask(profile), failed(NetworkError::NoAddress));
    EXPECT_EQ(gateway(profile), failed(NetworkError::NoGateway));
    EXPECT_EQ(configuration(profile), said(noAddress));
    EXPECT_EQ(name(profile), said("eth0"));
}

TEST_F(Addresses, AreMissingWhereDhcpHasNotAnsweredYet) {
    scene().addCable("eth0");
    scene().ip("route add default dev eth0 proto 16");
    EXPECT_EQ(configuration(Connection().current()), said(noAddress));
}

TEST_F(Addresses, OfIpv6AloneAreToldApartFromNone) {
    scene().addCable("eth0");
    scene().ip("-6 addr add 2001:db8::2/64 dev eth0 nodad");
    scene().ip("-6 route add default via 2001:db8::1 dev eth0");
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(connection.type(), said(ethernet));
    EXPECT_EQ(address(profile), failed(NetworkError::Ipv6Only));
    EXPECT_EQ(mask(profile), failed(NetworkError::Ipv6Only));
    EXPECT_EQ(gateway(profile), failed(NetworkError::NoGateway));
    EXPECT_EQ(configuration(profile), said(noAddress));
    EXPECT_EQ(connection.ethernetState(), said(2));
}

TEST_F(Addresses, BeginWithTheOneThatTheRouteSendsFrom) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/24 dev eth0");
    scene().ip("addr add 10.0.7.2/16 dev eth0 valid_lft 600 preferred_lft 600");
    scene().ip("route add default via 10.0.0.1 dev eth0 src 10.0.7.2");
    const Connection connection;
    EXPECT_EQ(address(connection.current()), said("10.0.7.2"));
    EXPECT_EQ(mask(connection.current()), said("255.255.0.0"));
    EXPECT_EQ(configuration(connection.current()), said(dynamicAddress));
}

TEST_F(Addresses, BeginWithTheKernelsFirstWhereTheRouteLeavesItOpen) {
    scene().addCable("eth0");
    scene().ip("addr add 169.254.3.4/16 dev eth0 scope link");
    scene().ip("addr add 10.0.0.2/24 dev eth0");
    scene().ip("addr add 10.0.0.3/24 dev eth0");
    scene().ip("route add default via 10.0.0.1 dev eth0");
    EXPECT_EQ(address(Connection().current()), said("10.0.0.2"));
}

TEST_F(Addresses, MayBeChosenForWantOfABetterOne) {
    scene().addCable("eth0");
    scene().ip("addr add 169.254.3.4/16 dev eth0 scope link");
    scene().ip("route add default dev eth0");
    EXPECT_EQ(address(Connection().current()), said("169.254.3.4"));
}

TEST_F(Addresses, OfTheMachineItselfDoNotCount) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/32 dev eth0 scope host");
    scene().ip("route add default dev eth0");
    EXPECT_EQ(address(Connection().current()), failed(NetworkError::NoAddress));
}

TEST_F(Addresses, AreTheNearOnesOfAPointToPointLink) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2 peer 10.0.0.1/30 dev eth0");
    scene().ip("route add default via 10.0.0.1 dev eth0");
    EXPECT_EQ(address(Connection().current()), said("10.0.0.2"));
    EXPECT_EQ(mask(Connection().current()), said("255.255.255.252"));
}

TEST_F(Addresses, HaveTheGatewayOfTheirOwnLink) {
    addWayOut("eth0", 0, "metric 100");
    addWayOut("eth1", 1, "metric 200");
    scene().ip("route add default via 10.0.1.9 dev eth1 metric 150");
    const Connection connection;
    EXPECT_EQ(gateway(connection.profileOf("eth0")), said("10.0.0.1"));
    EXPECT_EQ(gateway(connection.profileOf("eth1")), said("10.0.1.9"));
}

TEST_F(Addresses, HaveNoGatewayWhereItSpeaksIpv6) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/32 dev eth0");
    scene().ip("-6 addr add 2001:db8::2/64 dev eth0 nodad");
    scene().ip("route add default via inet6 2001:db8::1 dev eth0");
    EXPECT_EQ(address(Connection().current()), said("10.0.0.2"));
    EXPECT_EQ(gateway(Connection().current()), failed(NetworkError::NoGateway));
}

TEST_F(Addresses, ComeFromTheKernelAnewForEachProfile) {
    addWayOut("eth0");
    const Connection connection;
    EXPECT_EQ(address(connection.current()), said("10.0.0.2"));
    scene().ip("addr add 10.0.0.77/24 dev eth0");
    scene().ip("addr del 10.0.0.2/24 dev eth0");
    scene().ip("addr add 10.0.0.77/24 dev eth0");
    scene().ip("route replace default via 10.0.0.1 dev eth0");
    EXPECT_EQ(address(connection.current()), said("10.0.0.77"));
}

TEST_F(Addresses, AreThoseOfIpv4Only) {
    constexpr int ipv6 = 6;
    addWayOut("eth0");
    const Connection connection;
    connection_profile_h const profile = connection.current();
    EXPECT_EQ(address(profile, ipv6), failed(NetworkError::UnsupportedFamily));
    EXPECT_EQ(mask(profile, ipv6), failed(NetworkError::UnsupportedFamily));
    EXPECT_EQ(gateway(profile, ipv6), failed(NetworkError::UnsupportedFamily));
    EXPECT_EQ(nameServer(profile, 1, ipv6), failed(NetworkError::UnsupportedFamily));
    EXPECT_EQ(configuration(profile, ipv6), failed(NetworkError::UnsupportedFamily));
}

TEST_F(HardwareAddress, IsWrittenInCapitals) {
    addWayOut("eth0");
    scene().ip("link set eth0 address 02:00:5e:10:ab:cd");
    EXPECT_EQ(Connection().mac(ethernet), said("02:00:5E:10:AB:CD"));
}

TEST_F(HardwareAddress, IsThatOfTheLinkInUseAmongSeveral) {
    addWayOut("eth0", 0, "metric 200");
    addWayOut("eth1", 1, "metric 100");
    scene().ip("link set eth0 address 02:00:00:00:00:01");
    scene().ip("link set eth1 address 02:00:00:00:00:02");
    EXPECT_EQ(Connection().mac(ethernet), said("02:00:00:00:00:02"));
}

TEST_F(HardwareAddress, IsToldByTypeWhateverIsInUse) {
    addWayOut("eth0");
    scene().addCable("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\n");
    scene().ip("link set wlan0 address 02:00:00:00:00:03");
    EXPECT_EQ(Connection().mac(wifi), said("02:00:00:00:00:03"));
}

TEST_F(HardwareAddress, IsMissingForATypeThatIsNotThere) {
    addWayOut("eth0");
    const Connection connection;
    EXPECT_EQ(connection.mac(wifi), failed(NetworkError::NoSuchLink));
    EXPECT_EQ(connection.mac(cellular), failed(NetworkError::NoSuchLink));
    EXPECT_EQ(connection.mac(bluetooth), failed(NetworkError::NoSuchLink));
}

TEST_F(HardwareAddress, IsRefusedForNumbersThatAreNoType) {
    const Connection connection;
    for (const int number : {-1, 0, 5}) {
        EXPECT_EQ(connection.mac(number), failed(NetworkError::InvalidNumber)) << number;
    }
}

} // namespace
} // namespace klx::network
