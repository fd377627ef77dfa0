#include "PropertyPath.h"
#include "Thrown.h"

#include <boost/regex.hpp>
#include <gtest/gtest.h>

#include <random>

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

/** What the regular expression says that a segment is. */
PathSegment searched(const std::string& remaining) {
    static const boost::regex segment("^/(([^/]+|[/]{2})*)");
    boost::smatch match;
    EXPECT_TRUE(boost::regex_search(remaining, match, segment, boost::match_continuous));
    return {boost::regex_replace(match.str(1), boost::regex("//"), "/"),
            static_cast<std::size_t>(match.length(0))};
}

void expectWhatASearchGives(const std::string& remaining) {
    const PathSegment expected = searched(remaining);
    const PathSegment segment = firstSegment(remaining, "");
    EXPECT_EQ(segment.name, expected.name);
    EXPECT_EQ(segment.length, expected.length);
}

TEST(AnyPropertyPathTest, IsSplitAsTheExpressionSays) {
    std::mt19937 random(1);
    const std::string characters("///aa\n\0\xC3.", 10);
    for (int count = 0; count < 5000; ++count) {
        std::string remaining = "/";
        for (auto length = random() % 12; length > 0; --length) {
            remaining += characters[random() % characters.size()];
        }
        expectWhatASearchGives(remaining);
    }
}

TEST(AnyPropertyPathTest, IsSplitAlikeWhateverItsLength) {
    for (const std::size_t length : {1022U, 1023U, 1024U, 1025U, 1026U, 2000U}) {
        std::string slashes = "/";
        std::string mixed = "/";
        while (mixed.size() < length) {
            slashes += "/";
            mixed += mixed.size() % 3 == 1 ? 'a' : '/';
        }
        expectWhatASearchGives(slashes);
        expectWhatASearchGives(mixed);
        expectWhatASearchGives("/" + std::string(length - 1, 'a'));
        expectWhatASearchGives("/" + std::string(length - 3, 'a') + "/b");
    }
}

} // namespace
