#pragma once

#include "DeviceInfoGeneral.h"
#include "LogMatchers.h"
#include "factoryInfo.h"

#include <gmock/gmock.h>

#include <string>

namespace fake = klx::fake;

/** A line of the general accessors. */
inline fake::LineMatcher generalLine(int priority, const std::string& function,
                                     const std::string& message) {
    return fake::LineIn("DeviceInfoGeneral.cpp", priority, function, message);
}

/** A line of the factory values. */
inline fake::LineMatcher factoryLine(int priority, const std::string& function,
                                     const std::string& message) {
    return fake::LineIn("factoryInfo.cpp", priority, function, message);
}

/** A fixture with a platform of its own. */
class IdentityTest : public ::testing::Test {
protected:
    fake::Scene scene;
    DeviceInfoGeneral device;
    factoryInfo factory;
};
