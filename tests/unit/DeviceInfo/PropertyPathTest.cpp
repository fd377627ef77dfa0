#include "PropertyPath.h"
#include "Thrown.h"

#include <gtest/gtest.h>

using namespace klx::test;

namespace {

struct Split {
    const char* remaining;
    const char* name;
    std::size_t length;
};

std::ostream& operator<<(std::ostream& out, const Split& split) {
    return out << ::testing::PrintToString(std::string(split.remaining));
}

class PropertyPathTest : public ::testing::TestWithParam<Split> {};

TEST_P(PropertyPathTest, SplitsTheFirstSegmentOff) {
    const PathSegment segment = firstSegment(GetParam().remaining, "/whole");
    EXPECT_EQ(segment.name, GetParam().name);
    EXPECT_EQ(segment.length, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Paths, PropertyPathTest,
                         ::testing::Values(Split{"/Picture/Mode", "Picture", 8},
                                           Split{"/Mode", "Mode", 5}, Split{"/a//b/c", "a/b", 5},
                                           Split{"/a////b", "a//b", 7}, Split{"/a///b", "a/", 4},
                                           Split{"/", "", 1}, Split{"//", "", 1},
                                           Split{"///", "/", 3}, Split{"/a\n/b", "a\n", 3},
                                           Split{"/two  blanks+(x)/y", "two  blanks+(x)", 16}));

class BadPropertyPathTest : public ::testing::TestWithParam<const char*> {};

TEST_P(BadPropertyPathTest, ThrowsTheWholePath) {
    EXPECT_EQ(thrownBy([] { firstSegment(GetParam(), "/whole %s"); }),
              "Invalid property name: /whole %s");
}

INSTANTIATE_TEST_SUITE_P(Paths, BadPropertyPathTest,
                         ::testing::Values("", "Picture", "Picture/Mode", "a\n/b", "\n/b", " /a"));

} // namespace
