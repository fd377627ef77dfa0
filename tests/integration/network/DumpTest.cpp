#include "NetworkTest.h"

#include <json/json.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace klx::network {
namespace {

constexpr unsigned forever = 0xFFFFFFFF;

struct ClosePipe {
    void operator()(std::FILE* pipe) const { ::pclose(pipe); }
};

std::string outputOf(const std::string& command) {
    const std::unique_ptr<std::FILE, ClosePipe> pipe(::popen(command.c_str(), "r"));
    std::string output;
    std::array<char, 4096> part{};
    while (pipe && std::fgets(part.data(), static_cast<int>(part.size()), pipe.get()) != nullptr) {
        output += part.data();
    }
    return output;
}

Json::Value jsonOf(const std::string& command) {
    Json::Value value;
    std::istringstream text(outputOf(command));
    text >> value;
    return value;
}

std::string inCapitals(std::string text) {
    for (char& letter : text) {
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return text;
}

std::string dotted(unsigned prefixLength) {
    std::string text;
    for (unsigned part = 0; part < 4; ++part) {
        const unsigned bits = prefixLength > part * 8 ? std::min(prefixLength - part * 8, 8U) : 0;
        text += (part == 0 ? "" : ".") + std::to_string(256 - (1U << (8 - bits)));
    }
    return text;
}

using Properties = std::map<std::string, std::string>;

/** What the tool's document says under "Network". */
Properties dumpedNetwork() {
    const std::string document = outputOf("KLX_LOG=off " KLXCTL_TOOL " dump Network");
    const std::regex property(
        "<property name=\"([^\"]*)\" default=\"[^\"]*\" value=\"([^\"]*)\"/>");
    Properties properties;
    for (std::sregex_iterator found(document.begin(), document.end(), property), end; found != end;
         ++found) {
        properties[(*found)[1]] = (*found)[2];
    }
    return properties;
}

/** The best default route over a link as `ip` tells it; null when there is none. */
Json::Value routeOver(const std::string& link) {
    Json::Value best;
    for (const Json::Value& route : jsonOf("ip -j -N route show default dev " + link)) {
        if (best.isNull() || route.get("metric", 0).asUInt() < best.get("metric", 0).asUInt()) {
            best = route;
        }
    }
    return best;
}

Json::Value ipv4AddressOf(const Json::Value& link) {
    for (const Json::Value& address : link["addr_info"]) {
        if (address["family"].asString() == "inet") {
            return address;
        }
    }
    return {};
}

/** What the document has to say about a link, by what `ip` says about it. */
Properties factsOf(const std::string& name, int type, const std::string& nameServer) {
    constexpr const char* dhcp = "16";
    const Json::Value link = jsonOf("ip -j addr show dev " + name)[0];
    const Json::Value address = ipv4AddressOf(link);
    const Json::Value route = routeOver(name);
    const bool expires = address["valid_life_time"].asUInt() != forever;
    const bool isDynamic = expires || route.get("protocol", "").asString() == dhcp;
    return {{"DNS", nameServer},
            {"DeviceName", link["ifname"].asString()},
            {"Gateway", route.get("gateway", "").asString()},
            {"IP", address["local"].asString()},
            {"IPMode", isDynamic ? "DHCP" : "Manual"},
            {"MAC", inCapitals(link["address"].asString())},
            {"SubnetMask", dotted(address["prefixlen"].asUInt())},
            {"Type", std::to_string(type)}};
}

/** The tool's document, held against what `ip` tells about the same network. */
class DumpedNetwork : public NetworkTest {
protected:
    void SetUp() override {
        NetworkTest::SetUp();
        if (!IsSkipped() && !HasFatalFailure()) {
            scene().cover("/mnt");
            ::setenv("KLX_STATE_DIR", "/mnt", 1);
        }
    }

    /** Last of all: without the rest of /etc, `ip` knows no names. */
    void nameServer(const std::string& address) {
        scene().cover("/etc");
        scene().write("/etc/resolv.conf", "nameserver " + address + '\n');
    }
};

TEST_F(DumpedNetwork, IsThatOfAStaticAddress) {
    addWayOut("eth0");
    nameServer("192.0.2.53");
    EXPECT_EQ(dumpedNetwork(), factsOf("eth0", ethernet, "192.0.2.53"));
    EXPECT_EQ(dumpedNetwork()["IPMode"], "Manual");
}

TEST_F(DumpedNetwork, IsThatOfAnAddressThatExpires) {
    scene().addCable("eth0");
    scene().ip("addr add 10.0.0.2/22 dev eth0 valid_lft 600 preferred_lft 600");
    scene().ip("route add default via 10.0.0.1 dev eth0");
    nameServer("192.0.2.54");
    EXPECT_EQ(dumpedNetwork(), factsOf("eth0", ethernet, "192.0.2.54"));
    EXPECT_EQ(dumpedNetwork()["IPMode"], "DHCP");
}

TEST_F(DumpedNetwork, IsThatOfARouteByDhcp) {
    addWayOut("eth0", 0, "proto 16");
    nameServer("192.0.2.55");
    EXPECT_EQ(dumpedNetwork(), factsOf("eth0", ethernet, "192.0.2.55"));
    EXPECT_EQ(dumpedNetwork()["IPMode"], "DHCP");
}

TEST_F(DumpedNetwork, IsThatOfTheLowestMetric) {
    addWayOut("eth0", 0, "metric 600");
    addWayOut("eth1", 1, "metric 100");
    nameServer("192.0.2.56");
    EXPECT_EQ(dumpedNetwork(), factsOf("eth1", ethernet, "192.0.2.56"));
}

TEST_F(DumpedNetwork, IsThatOfAWifiLink) {
    addWayOut("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\n", {"wireless"});
    nameServer("192.0.2.57");
    EXPECT_EQ(dumpedNetwork(), factsOf("wlan0", wifi, "192.0.2.57"));
}

TEST_F(DumpedNetwork, IsThatOfARegisteredLinkWithoutADefaultRoute) {
    scene().addCable("wlan0");
    scene().describe("wlan0", "DEVTYPE=wlan\n", {"wireless"});
    scene().ip("addr add 10.0.0.2/24 dev wlan0");
    nameServer("192.0.2.58");
    EXPECT_EQ(dumpedNetwork(), factsOf("wlan0", wifi, "192.0.2.58"));
    EXPECT_EQ(dumpedNetwork()["Gateway"], "");
}

TEST_F(DumpedNetwork, IsEmptyAfterTheLinkWentAway) {
    addWayOut("eth0");
    nameServer("192.0.2.59");
    EXPECT_EQ(dumpedNetwork(), factsOf("eth0", ethernet, "192.0.2.59"));
    scene().ip("link del eth0");
    const Properties nothing{{"DNS", ""}, {"DeviceName", ""}, {"Gateway", ""},    {"IP", ""},
                             {"MAC", ""}, {"IPMode", "None"}, {"SubnetMask", ""}, {"Type", "0"}};
    EXPECT_EQ(dumpedNetwork(), nothing);
}

TEST_F(DumpedNetwork, FollowsARename) {
    scene().addCable("wlan0");
    scene().describe("living-room", "DEVTYPE=wlan\n", {"wireless"});
    scene().ip("link set wlan0 down");
    scene().ip("link set wlan0 name living-room");
    scene().ip("link set living-room up");
    scene().ip("addr add 10.0.0.2/24 dev living-room");
    nameServer("192.0.2.60");
    EXPECT_EQ(dumpedNetwork(), factsOf("living-room", wifi, "192.0.2.60"));
}

} // namespace
} // namespace klx::network
