#include "PictureTest.h"
#include "commonUtil.h"

#include <climits>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using TextConversionTest = PictureTest;

TEST_F(TextConversionTest, NumbersAreWrittenInDecimal) {
    EXPECT_EQ(commonUtil::intToStr(0), "0");
    EXPECT_EQ(commonUtil::intToStr(1234567), "1234567");
    EXPECT_EQ(commonUtil::intToStr(INT_MAX), "2147483647");
    EXPECT_EQ(commonUtil::intToStr(INT_MIN), "-2147483648");
}

TEST_F(TextConversionTest, NumberAtTheStartOfATextIsRead) {
    EXPECT_EQ(commonUtil::strToInt("2147483647"), INT_MAX);
    EXPECT_EQ(commonUtil::strToInt("-2147483648"), INT_MIN);
    EXPECT_EQ(commonUtil::strToInt(" \t\n+12"), 12);
    EXPECT_EQ(commonUtil::strToInt("12abc"), 12);
    EXPECT_EQ(commonUtil::strToInt("1.9"), 1);
    EXPECT_EQ(commonUtil::strToInt("010"), 10);
    EXPECT_EQ(commonUtil::strToInt("0x10"), 0);
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(TextConversionTest, TextWithoutANumberReadsAsZero) {
    for (const char* text : {"", " ", "abc", "-", "- 1"}) {
        fake::clearHistory();
        EXPECT_EQ(commonUtil::strToInt(text), 0) << text;
        EXPECT_THAT(fake::logs(), ElementsAre(failureLine("strToInt", "Exception ERR std::stoi")));
    }
}

TEST_F(TextConversionTest, NumberThatDoesNotFitReadsAsZero) {
    for (const char* text : {"2147483648", "-2147483649", "4294967295", "99999999999999999999"}) {
        fake::clearHistory();
        EXPECT_EQ(commonUtil::strToInt(text), 0) << text;
        EXPECT_THAT(fake::logs(), ElementsAre(failureLine("strToInt", "Exception ERR std::stoi")));
    }
}

} // namespace
