#include "Handles.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

int released = 0;

void release(int* handle) {
    released += *handle;
}

using Handle = std::unique_ptr<int, KLX::ReleasedBy<&release>>;

class HandlesTest : public ::testing::Test {
protected:
    HandlesTest() { released = 0; }
};

TEST_F(HandlesTest, ReleasesWhatItHoldsOnce) {
    int number = 5;
    {
        Handle handle(&number);
        const Handle taker = std::move(handle);
        EXPECT_EQ(released, 0);
    }
    EXPECT_EQ(released, 5);
}

TEST_F(HandlesTest, ReleasesAtTheEndOfItsScope) {
    int number = 5;
    { const Handle handle(&number); }
    EXPECT_EQ(released, 5);
}

TEST_F(HandlesTest, NeverReleasesNull) {
    { const Handle handle(nullptr); }
    EXPECT_EQ(released, 0);
}

TEST_F(HandlesTest, CopiesAPlatformText) {
    const KLX::PlatformText text(strdup("handed out"));
    EXPECT_EQ(KLX::copyOf(text), "handed out");
}

TEST_F(HandlesTest, CopiesAMissingPlatformTextAsNothing) {
    EXPECT_EQ(KLX::copyOf(KLX::PlatformText()), "");
}

} // namespace
