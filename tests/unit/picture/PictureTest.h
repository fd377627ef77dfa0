#pragma once

#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

namespace fake = klx::fake;

/** A line of the conversions and wrappers, at the priority of a failure. */
inline fake::LineMatcher failureLine(const std::string& function, const std::string& message) {
    return fake::LineIn("commonUtil.h", 6, function, message);
}

/** A line of the conversions and wrappers that only tells. */
inline fake::LineMatcher detailLine(const std::string& function, const std::string& message) {
    return fake::LineIn("commonUtil.h", 3, function, message);
}

/** A fixture with a platform of its own. */
class PictureTest : public ::testing::Test {
protected:
    fake::Scene scene;
};
