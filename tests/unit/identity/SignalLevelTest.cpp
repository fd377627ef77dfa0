#include "IdentityTest.h"

#include <locale>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const auto reading = generalLine(3, "getSNRLevel", "getting snr level");

/** For as long as it lives, the process's C++ locale writes 1234.5 as 1.234,5. */
class CommaLocale {
public:
    CommaLocale() : m_before(std::locale::global(std::locale(std::locale(), new Comma))) {}
    ~CommaLocale() { std::locale::global(m_before); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_before;
};

struct Level {
    int hundredths;
    const char* text;
};

class SignalLevelTest : public IdentityTest, public ::testing::WithParamInterface<Level> {};

TEST_P(SignalLevelTest, IsWrittenInDecibel) {
    scene.snr(GetParam().hundredths);
    EXPECT_EQ(device.getSNRLevel(), GetParam().text);
}

TEST_P(SignalLevelTest, IsWrittenTheSameInEveryLocale) {
    const CommaLocale locale;
    scene.snr(GetParam().hundredths);
    EXPECT_EQ(device.getSNRLevel(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Levels, SignalLevelTest,
                         ::testing::Values(Level{2534, "25.34 dB"}, Level{2500, "25 dB"},
                                           Level{-150, "-1.5 dB"}, Level{0, "0 dB"},
                                           Level{1, "0.01 dB"}, Level{-1, "-0.01 dB"},
                                           Level{123456, "1234.56 dB"},
                                           Level{1234567, "12345.7 dB"},
                                           Level{2147483647, "2.14748e+07 dB"}));

using TunerTest = IdentityTest;

TEST_F(TunerTest, IsDestroyedAfterASuccessfulRead) {
    scene.snr(2534);
    device.getSNRLevel();
    EXPECT_THAT(fake::history(),
                ElementsAre("log(3) getSNRLevel: getting snr level", "CreateTunerControl(1, 0)",
                            "TunerControl.GetSNRLevel()", "Destroy(TunerControl)"));
    EXPECT_THAT(fake::logs(), ElementsAre(reading));
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(TunerTest, ThatCannotBeCreatedIsLogged) {
    scene.snr(2534).fail("CreateTunerControl", 17);
    EXPECT_EQ(device.getSNRLevel(), "");
    EXPECT_THAT(fake::calls(), ElementsAre("CreateTunerControl(1, 0)"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(reading, generalLine(5, "getSNRLevel",
                                                 "FAILURE creating tuner control object")));
}

TEST_F(TunerTest, StatusOfItsCreationIsNotExamined) {
    scene.snr(2534).answer("CreateTunerControl", 17);
    EXPECT_EQ(device.getSNRLevel(), "25.34 dB");
}

TEST_F(TunerTest, IsLeftAsItIsAfterAFailedRead) {
    for (const int status : {0, 2, -17}) {
        fake::reset();
        scene.snr(2534).answer("TunerControl.GetSNRLevel", status);
        EXPECT_EQ(device.getSNRLevel(), "");
        EXPECT_THAT(fake::callsTo("Destroy"), IsEmpty());
        EXPECT_THAT(fake::openHandles(), ElementsAre("TunerControl"));
        EXPECT_THAT(fake::logs(),
                    ElementsAre(reading, generalLine(5, "getSNRLevel",
                                                     "FAILURE while getting SNR level " +
                                                         std::to_string(status))));
    }
}

} // namespace
