#include "NetworkTest.h"

#include <cstdlib>

namespace klx::network {
namespace {

char** programArguments = nullptr;

const std::string& obstacle() {
    static const std::string reason = Scene::prepare(programArguments);
    return reason;
}

} // namespace

void NetworkTest::rememberArguments(char** arguments) {
    programArguments = arguments;
}

void NetworkTest::SetUp() {
    if (!obstacle().empty()) {
        const char* const ci = std::getenv("CI");
        ASSERT_TRUE(ci == nullptr || std::string(ci) != "true")
            << "no network namespaces here: " << obstacle()
            << "; run as root with CAP_SYS_ADMIN, in a container with --privileged";
        GTEST_SKIP() << "needs network namespaces: " << obstacle();
    }
    m_scene = std::make_unique<Scene>();
}

void NetworkTest::TearDown() {
    m_scene.reset();
}

void NetworkTest::addWayOut(const std::string& name, int number, const std::string& routeOptions) {
    const std::string net = "10.0." + std::to_string(number) + '.';
    scene().addCable(name);
    scene().ip("addr add " + net + "2/24 dev " + name);
    scene().ip("route add default via " + net + "1 dev " + name + ' ' + routeOptions);
}

} // namespace klx::network
