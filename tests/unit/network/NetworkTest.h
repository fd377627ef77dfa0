#pragma once

#include "DeviceProperty.h"
#include "FakePlatform.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fake = klx::fake;

/// A test of the network's accessors; whatever it does, every handle has to be closed in the end.
class NetworkTest : public ::testing::Test {
protected:
    NetworkTest() { fake::clearHistory(); }

    void TearDown() override {
        EXPECT_THAT(fake::openHandles(), ::testing::IsEmpty());
        EXPECT_THAT(fake::misuses(), ::testing::IsEmpty());
    }

    /// A profile of an ethernet link with everything that can be asked of it.
    static fake::Profile home() {
        return fake::Profile("home")
            .type(2)
            .ip("192.0.2.7")
            .subnetMask("255.255.255.0")
            .gateway("192.0.2.1")
            .dns("192.0.2.53", 1)
            .dns("192.0.2.54", 2)
            .ipConfig(2)
            .interfaceName("eth7");
    }

    fake::Scene scene;
    DeviceInfoNetwork network;
};
