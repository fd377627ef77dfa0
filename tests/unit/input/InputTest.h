#pragma once

#include "DeviceInfoInput.h"
#include "FakePlatform.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fake = klx::fake;

constexpr auto tessaFeature = "com.velmora/featureconf/the_tessa_version";

/// A test of the inputs' accessors on a set that is no Tessa set unless the test says so. Whatever
/// it does, every handle has to be closed in the end.
class InputTest : public ::testing::Test {
protected:
    InputTest() {
        scene.feature(tessaFeature, 0);
        fake::clearHistory();
    }

    void TearDown() override {
        EXPECT_THAT(fake::openHandles(), ::testing::IsEmpty());
        EXPECT_THAT(fake::misuses(), ::testing::IsEmpty());
    }

    /// The accessors of a set that is made now, without what making them left in the history.
    DeviceInfoInput input() {
        DeviceInfoInput made;
        fake::clearHistory();
        return made;
    }

    fake::Scene scene;
};
