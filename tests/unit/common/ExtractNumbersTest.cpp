#include "KLXCommonUtil.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

struct Extraction {
    const char* text;
    const char* numbers;
};

std::ostream& operator<<(std::ostream& out, const Extraction& extraction) {
    return out << extraction.text;
}

class ExtractNumbersTest : public ::testing::TestWithParam<Extraction> {
protected:
    klx::fake::Scene scene;
};

TEST_P(ExtractNumbersTest, GivesTheStretchFromTheFirstDigitToTheLast) {
    EXPECT_EQ(KLXCommonUtil::extractLastNumbers(GetParam().text), GetParam().numbers);
    EXPECT_THAT(klx::fake::history(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ExtractNumbersTest,
    ::testing::Values(Extraction{"T-55Q80B", "55Q80"}, Extraction{"ver 12.34 b", "12.34"},
                      Extraction{"a1b2", "1b2"}, Extraction{"7", "7"}, Extraction{"HDMI1", "1"},
                      Extraction{"/Input/Source_Connect/HDMI1", "1"}, Extraction{"09", "09"},
                      Extraction{"0 and nothing else", "0"}));

class NoNumbersTest : public ::testing::TestWithParam<const char*> {
protected:
    klx::fake::Scene scene;
};

TEST_P(NoNumbersTest, IsOutOfRange) {
    try {
        KLXCommonUtil::extractLastNumbers(GetParam());
        FAIL() << "nothing thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_THAT(error.what(), HasSubstr("basic_string::substr"));
    }
    EXPECT_THAT(klx::fake::history(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, NoNumbersTest,
                         ::testing::Values("", "HDMI", "/Input/Source_Connect/SCART",
                                           "\xD9\xA1\xD9\xA2"));

} // namespace
