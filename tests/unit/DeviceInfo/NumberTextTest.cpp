#include "Locales.h"
#include "LogMatchers.h"
#include "commonUtil.h"

#include <gmock/gmock.h>

#include <climits>

namespace fake = klx::fake;
using namespace klx::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class NumberTextTest : public ::testing::Test {
protected:
    fake::Scene scene;
};

TEST_F(NumberTextTest, NumberIsWrittenInDecimal) {
    EXPECT_EQ(commonUtil::intToStr(0), "0");
    EXPECT_EQ(commonUtil::intToStr(42), "42");
    EXPECT_EQ(commonUtil::intToStr(-7), "-7");
    EXPECT_EQ(commonUtil::intToStr(INT_MAX), "2147483647");
    EXPECT_EQ(commonUtil::intToStr(INT_MIN), "-2147483648");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(NumberTextTest, TextIsReadAsFarAsItIsANumber) {
    EXPECT_EQ(commonUtil::strToInt("42"), 42);
    EXPECT_EQ(commonUtil::strToInt(" \t-7 days"), -7);
    EXPECT_EQ(commonUtil::strToInt("+08"), 8);
    EXPECT_EQ(commonUtil::strToInt("2147483647"), INT_MAX);
    EXPECT_EQ(commonUtil::strToInt("-2147483648"), INT_MIN);
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(NumberTextTest, TextWithoutANumberIsZeroAndLogged) {
    for (const char* text : {"", "abc", "-", " ", "2147483648", "-99999999999999999999"}) {
        fake::clearHistory();
        EXPECT_EQ(commonUtil::strToInt(text), 0);
        EXPECT_THAT(fake::logs(), ElementsAre(fake::LineIn("commonUtil.h", 6, "strToInt",
                                                           "Exception ERR std::stoi")));
    }
}

TEST_F(NumberTextTest, IsTheSameInALocaleThatGroupsDigits) {
    const GroupingLocale locale;
    EXPECT_EQ(commonUtil::intToStr(1234567), "1234567");
    EXPECT_EQ(commonUtil::strToInt("1234567"), 1234567);
    EXPECT_EQ(commonUtil::strToInt("1,234,567"), 1);
}

} // namespace
