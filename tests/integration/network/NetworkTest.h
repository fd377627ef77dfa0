#pragma once

#include "Scene.h"
#include "Service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace klx::network {

/**
 * A test in a network of its own. Where namespaces are not permitted it is skipped; a continuous
 * integration run ($CI is "true") has to permit them, and it fails there.
 */
class NetworkTest : public testing::Test {
public:
    /** Remembers how the program was called; before any test runs. */
    static void rememberArguments(char** arguments);

protected:
    void SetUp() override;
    void TearDown() override;

    Scene& scene() { return *m_scene; }

    /** A cable with a static address and the default route over it, as `number` in the addresses:
     * 10.0.NUMBER.2/24 by 10.0.NUMBER.1. */
    void addWayOut(const std::string& name, int number = 0, const std::string& routeOptions = "");

private:
    std::unique_ptr<Scene> m_scene;
};

/** Throws what makes googletest skip the test when this kernel does not know the kind of link. */
#define KLX_NEED_LINK(scene, arguments)                                                            \
    if (!(scene).tryIp(arguments)) {                                                               \
        GTEST_SKIP() << "this kernel cannot: ip " << (arguments);                                  \
    }                                                                                              \
    static_assert(true, "a semicolon follows")

} // namespace klx::network
