#include "NetworkTest.h"

using fake::Line;
using fake::LineIn;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

/// A query that reads one text of the held profile.
struct TextQuery {
    const char* name;
    std::string (DeviceInfoNetwork::*query)(const std::string&);
    const char* platformCall;
    const char* platformFunction;
    const char* answer;
    const char* failure;
};

void PrintTo(const TextQuery& query, std::ostream* out) {
    *out << query.name;
}

class ProfileTextTest : public NetworkTest, public ::testing::WithParamInterface<TextQuery> {
protected:
    std::string ask() { return (network.*GetParam().query)("ignored"); }
};

TEST_P(ProfileTextTest, ReadsTheHeldProfileOverAConnectionOfItsOwn) {
    scene.connectionType(3).currentProfile(home());
    EXPECT_EQ(ask(), GetParam().answer);
    EXPECT_THAT(fake::calls(),
                ElementsAre("connection_create()", "connection_get_current_profile(connection)",
                            "connection_get_type(connection)", GetParam().platformCall,
                            "connection_destroy(connection)"));
}

TEST_P(ProfileTextTest, LogsItsOwnFailure) {
    scene.connectionType(3).currentProfile(fake::Profile("bare").type(2));
    EXPECT_EQ(ask(), "");
    EXPECT_THAT(fake::logs(),
                Contains(LineIn("DeviceInfoNetwork.cpp", 5, GetParam().name, GetParam().failure)));
    EXPECT_THAT(fake::messages(5), ElementsAre(GetParam().failure));
}

TEST_P(ProfileTextTest, LogsThatNoConnectionCanBeMade) {
    scene.fail("connection_create", 7);
    EXPECT_EQ(ask(), "");
    EXPECT_THAT(fake::messages(5),
                ElementsAre("Unable to init network api. creating connection failed"));
    EXPECT_THAT(fake::logs(),
                Contains(Line(5, GetParam().name,
                              "Unable to init network api. creating connection failed")));
}

TEST_P(ProfileTextTest, LetsOtherExceptionsPassAfterTheRelease) {
    scene.connectionType(3).currentProfile(home()).throwFrom(GetParam().platformFunction,
                                                             std::runtime_error("gone"));
    EXPECT_THROW(ask(), std::runtime_error);
    EXPECT_EQ(fake::calls().back(), "connection_destroy(connection)");
}

TEST_P(ProfileTextTest, ANullTextIsEmpty) {
    const fake::Profile silent = fake::Profile("silent")
                                     .type(2)
                                     .ip(nullptr)
                                     .subnetMask(nullptr)
                                     .gateway(nullptr)
                                     .dns(nullptr)
                                     .interfaceName(nullptr);
    scene.connectionType(3).currentProfile(silent);
    EXPECT_EQ(ask(), "");
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Queries, ProfileTextTest,
    ::testing::Values(TextQuery{"getNetworkIP", &DeviceInfoNetwork::getNetworkIP,
                                "connection_profile_get_ip_address(home, 0)",
                                "connection_profile_get_ip_address", "192.0.2.7",
                                "Failure while getting network IP"},
                      TextQuery{"getNetworkSubnetMask", &DeviceInfoNetwork::getNetworkSubnetMask,
                                "connection_profile_get_subnet_mask(home, 0)",
                                "connection_profile_get_subnet_mask", "255.255.255.0",
                                "Failure while getting network subnet mask"},
                      TextQuery{"getNetworkGateway", &DeviceInfoNetwork::getNetworkGateway,
                                "connection_profile_get_gateway_address(home, 0)",
                                "connection_profile_get_gateway_address", "192.0.2.1",
                                "Failure while getting gateway address"},
                      TextQuery{"getNetworkDNS", &DeviceInfoNetwork::getNetworkDNS,
                                "connection_profile_get_dns_address(home, 1, 0)",
                                "connection_profile_get_dns_address", "192.0.2.53",
                                "Failure while getting network DNS"},
                      TextQuery{"getNetworkDeviceName", &DeviceInfoNetwork::getNetworkDeviceName,
                                "connection_profile_get_network_interface_name(home)",
                                "connection_profile_get_network_interface_name", "eth7",
                                "Failure while getting device name"}));

class AddressTest : public NetworkTest {};

TEST_F(AddressTest, OnlyTheGatewayIsLogged) {
    scene.connectionType(3).currentProfile(home());
    network.getNetworkIP("");
    network.getNetworkSubnetMask("");
    network.getNetworkDNS("");
    network.getNetworkDeviceName("");
    EXPECT_THAT(fake::messages(4), IsEmpty());
    network.getNetworkGateway("");
    EXPECT_THAT(fake::logs(), Contains(Line(4, "getNetworkGateway", "192.0.2.1")));
}

TEST_F(AddressTest, ModesHaveWords) {
    const std::pair<int, const char*> modes[] = {{0, "None"}, {1, "Manual"}, {2, "DHCP"},
                                                 {3, "Auto"}, {4, "Fixed"},  {7, "None"},
                                                 {-1, "None"}};
    for (const auto& [number, word] : modes) {
        scene.connectionType(3).currentProfile(fake::Profile("home").type(2).ipConfig(number));
        EXPECT_EQ(network.getNetworkIPMode(""), word) << "mode " << number;
    }
}

TEST_F(AddressTest, ModeThatCannotBeReadIsNoneWithoutALine) {
    scene.connectionType(3).currentProfile(fake::Profile("bare").type(2));
    EXPECT_EQ(network.getNetworkIPMode(""), "None");
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

TEST_F(AddressTest, ModeWithoutAConnectionIsEmpty) {
    scene.fail("connection_create", 7);
    EXPECT_EQ(network.getNetworkIPMode(""), "");
    EXPECT_THAT(fake::logs(),
                Contains(Line(5, "getNetworkIPMode",
                              "Unable to init network api. creating connection failed")));
}

class MacTest : public NetworkTest {
protected:
    MacTest() {
        scene.mac(1, "02:00:00:00:00:01").mac(2, "02:00:00:00:00:02").mac(3, "02:00:00:00:00:03");
    }

    std::string mac(int type) {
        return network.getNetworkMAC(static_cast<DeviceInfoNetwork::connectionProfileType>(type));
    }
};

TEST_F(MacTest, OfAKindOfLinkIsReadByConnectionType) {
    scene.connectionType(3).currentProfile(home());
    EXPECT_EQ(mac(0), "02:00:00:00:00:03");
    EXPECT_EQ(mac(1), "02:00:00:00:00:01");
    EXPECT_EQ(mac(2), "02:00:00:00:00:02");
    EXPECT_THAT(fake::callsTo("connection_get_mac_address"),
                ElementsAre("connection_get_mac_address(connection, 3)",
                            "connection_get_mac_address(connection, 1)",
                            "connection_get_mac_address(connection, 2)"));
    EXPECT_THAT(fake::logs(),
                Contains(Line(3, "getNetworkMAC", "Success. MAC: 02:00:00:00:00:03")));
}

TEST_F(MacTest, OfTheCurrentConnectionFollowsItsType) {
    scene.connectionType(1).currentProfile(home());
    EXPECT_EQ(mac(3), "02:00:00:00:00:01");
}

TEST_F(MacTest, OfAHeldProfileIsReadWhileDisconnected) {
    scene.connectionType(0).currentProfile(home());
    EXPECT_EQ(mac(3), "02:00:00:00:00:03");
}

TEST_F(MacTest, OfAnUnknownKindIsRefusedOverAnOpenConnection) {
    scene.connectionType(3).currentProfile(home());
    EXPECT_EQ(mac(4), "");
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getNetworkMAC", "Unexpected param: 4")));
    EXPECT_EQ(mac(-1), "");
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getNetworkMAC", "Unexpected param: -1")));
    EXPECT_THAT(fake::callsTo("connection_get_mac_address"), IsEmpty());
    EXPECT_EQ(fake::callsTo("connection_create").size(), 2U);
}

TEST_F(MacTest, ThatCannotBeReadIsEmpty) {
    scene.connectionType(3).currentProfile(home()).fail("connection_get_mac_address", 7);
    EXPECT_EQ(mac(3), "");
    EXPECT_THAT(fake::logs(),
                Contains(Line(5, "getNetworkMAC", "Failure while getting network MAC")));
}

TEST_F(MacTest, WithoutAConnectionIsEmpty) {
    scene.fail("connection_create", 7);
    EXPECT_EQ(mac(4), "");
    EXPECT_THAT(fake::messages(5),
                ElementsAre("Unable to init network api. creating connection failed"));
}

TEST_F(MacTest, LogsAConnectionTypeThatIsLostOnTheWay) {
    // The type is read once while the connection is opened and once for the query.
    scene.connectionType(3).currentProfile(home()).failNth("connection_get_type", 2, 7);
    EXPECT_EQ(mac(3), "");
    EXPECT_THAT(fake::logs(),
                Contains(Line(5, "getNetworkMAC",
                              "getting connection type failed. getting profile type failed")));
}

class NetworkTypeTest : public NetworkTest {};

TEST_F(NetworkTypeTest, IsTheConnectionsNumber) {
    scene.connectionType(3).currentProfile(home());
    EXPECT_EQ(network.getNetworkType(""), "3");
    scene.connectionType(5);
    EXPECT_EQ(network.getNetworkType(""), "5");
}

TEST_F(NetworkTypeTest, IsZeroWithoutConnectionAndProfile) {
    scene.connectionType(0);
    EXPECT_EQ(network.getNetworkType(""), "0");
}

TEST_F(NetworkTypeTest, LogsTheBareTextOfAFailure) {
    scene.fail("connection_create", 7);
    EXPECT_EQ(network.getNetworkType(""), "");
    EXPECT_THAT(fake::messages(5), ElementsAre("creating connection failed"));
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getNetworkType", "creating connection failed")));
}

TEST_F(NetworkTypeTest, LogsAFailureBeforeTheRelease) {
    scene.currentProfile(home()).fail("connection_get_type", 7);
    EXPECT_EQ(network.getNetworkType(""), "");
    const std::vector<std::string> history = fake::history();
    ASSERT_GE(history.size(), 2U);
    EXPECT_EQ(history.back(), "connection_destroy(connection)");
    EXPECT_THAT(history[history.size() - 2], ::testing::StartsWith("log(5) getNetworkType: "));
}

TEST_F(NetworkTypeTest, LetsOtherExceptionsPassAfterTheRelease) {
    scene.currentProfile(home()).throwFrom("connection_get_type", std::runtime_error("gone"));
    EXPECT_THROW(network.getNetworkType(""), std::runtime_error);
    EXPECT_EQ(fake::calls().back(), "connection_destroy(connection)");
}

} // namespace
