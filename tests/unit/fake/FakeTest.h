#pragma once

#include "LogMatchers.h"

#include <cstdlib>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace klx {

/** A fixture with a scene of its own. */
class FakeTest : public ::testing::Test {
protected:
    fake::Scene scene;
};

struct Freed {
    void operator()(char* text) const { std::free(text); }
};

/** A text that a platform function handed out. */
using Text = std::unique_ptr<char, Freed>;

/** Reads a text through a platform function and owns it. */
template <typename Read>
Text take(int* status, Read read) {
    char* text = nullptr;
    *status = read(&text);
    return Text(text);
}

} // namespace klx
