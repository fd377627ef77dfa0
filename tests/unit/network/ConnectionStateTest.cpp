#include "NetworkTest.h"

using fake::Line;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct Link {
    const char* name;
    int type;
    int connectedState;
    fake::Scene& (fake::Scene::*setState)(int);
    const char* platformFunction;
    const char* failure;
    const char* success;
};

void PrintTo(const Link& link, std::ostream* out) {
    *out << link.name;
}

class ConnectionStateTest : public NetworkTest, public ::testing::WithParamInterface<Link> {
protected:
    ConnectionStateTest() { scene.connectionType(GetParam().type).currentProfile(home()); }

    bool ping() { return network.pingGateway(defaultValue, "ignored"); }
};

TEST_P(ConnectionStateTest, IsUpInTheConnectedState) {
    (scene.*GetParam().setState)(GetParam().connectedState);
    EXPECT_TRUE(ping());
    EXPECT_THAT(fake::callsTo(GetParam().platformFunction),
                ElementsAre(std::string(GetParam().platformFunction) + "(connection)"));
    EXPECT_THAT(
        fake::logs(),
        Contains(Line(3, "pingGateway", "Connection type: " + std::to_string(GetParam().type))));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "pingGateway",
                                            GetParam().success + std::string(": ") +
                                                std::to_string(GetParam().connectedState))));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "pingGateway", "Network connection state: 1")));
}

TEST_P(ConnectionStateTest, IsDownInAnyOtherState) {
    (scene.*GetParam().setState)(GetParam().connectedState - 1);
    EXPECT_FALSE(ping());
    EXPECT_THAT(fake::logs(), Contains(Line(3, "pingGateway", "Network connection state: 0")));
}

TEST_P(ConnectionStateTest, IsDownWhenTheStateCannotBeRead) {
    scene.fail(GetParam().platformFunction, 7);
    EXPECT_FALSE(ping());
    EXPECT_THAT(fake::messages(5), ElementsAre(GetParam().failure));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "pingGateway", "Network connection state: 0")));
}

INSTANTIATE_TEST_SUITE_P(
    Links, ConnectionStateTest,
    ::testing::Values(
        Link{"wifi", 1, 2, &fake::Scene::wifiState, "connection_get_wifi_state",
             "Failed getting wifi connection state.", "Wifi connection state"},
        Link{"cellular", 2, 5, &fake::Scene::cellularState, "connection_get_cellular_state",
             "Failed getting cellular connection state.", "Cellular connection state"},
        Link{"ethernet", 3, 2, &fake::Scene::ethernetState, "connection_get_ethernet_state",
             "Failed getting ethernet connection state.", "Ethernet connection state"}));

class NoConnectionStateTest : public NetworkTest {};

TEST_F(NoConnectionStateTest, OfAnotherKindOfLinkIsDown) {
    scene.connectionType(4).currentProfile(home());
    EXPECT_FALSE(network.pingGateway(currentValue, ""));
    EXPECT_THAT(fake::logs(), Contains(Line(3, "pingGateway", "Network connection state: 0")));
}

TEST_F(NoConnectionStateTest, WithoutAConnectionIsDown) {
    scene.fail("connection_create", 7);
    EXPECT_FALSE(network.pingGateway(currentValue, ""));
    EXPECT_THAT(
        fake::logs(),
        Contains(Line(5, "pingGateway", "Unable to init network api. creating connection failed")));
}

} // namespace
