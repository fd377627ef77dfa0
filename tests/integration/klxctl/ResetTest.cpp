#include "RestoreTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class ResetTest : public RestoreTest {};

} // namespace

TEST_F(ResetTest, SetsAPropertyToItsDefault) {
    ASSERT_EQ(run({"set", backlight, "12"}).status, 0);
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    const Report report = this->report({"reset", backlight});
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.root["properties"].size(), 1U);
    EXPECT_EQ(report.resultOf(backlight), "applied");
    EXPECT_EQ(report.of(backlight, "before"), "12");
    EXPECT_EQ(valueOf(backlight), "35");
    EXPECT_EQ(valueOf(mute), "1");
    EXPECT_EQ(this->report({"reset", backlight}).resultOf(backlight), "unchanged");
}

TEST_F(ResetTest, OfAMenuResetsTheSettingsBelowItAndNoOthers) {
    ASSERT_EQ(run({"set", backlight, "12"}).status, 0);
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    for (const char* name : {"Picture", "/General/"}) {
        EXPECT_EQ(run({"reset", name}).status, 0);
    }
    EXPECT_EQ(valueOf(backlight), "35");
    EXPECT_EQ(valueOf(mute), "1");
    EXPECT_EQ(valueOf(number), "4");
    EXPECT_EQ(run({"reset", "/General & Privacy/Accessibility"}).status, 0);
    EXPECT_EQ(valueOf(number), "2");
}

TEST_F(ResetTest, OfAllResetsEverySettingAndNoFact) {
    for (const std::string& path : {backlight, mute, number, mode}) {
        ASSERT_EQ(run({"set", path, "3"}).status == 0 || path == mute, true);
    }
    const Report report = this->report({"reset", "--all"});
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.resultOf(fact), "");
    EXPECT_EQ(report.resultOf(number), "applied");
    EXPECT_EQ(report.resultOf(text), "unchanged");
    EXPECT_EQ(valueOf(mode), "1");
}

TEST_F(ResetTest, TakesTheDefaultsOfTheModeThatItReturnsTo) {
    ASSERT_EQ(run({"set", backlight, "12"}).status, 0);
    ASSERT_EQ(run({"set", mode, "3"}).status, 0);
    const Report report = this->report({"reset", "/Picture"});
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.of(backlight, "wanted"), "35");
    EXPECT_EQ(valueOf(mode), "1");
    EXPECT_EQ(valueOf(backlight), "35");
}

TEST_F(ResetTest, TakesAMenuThatIsNamedTwice) {
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"reset", "Sound", "/Sound/"}, {"reset", "Sound", mute}}) {
        EXPECT_EQ(run(words).status, 0);
    }
    EXPECT_EQ(
        run({"reset", "General & Privacy", "General & Privacy/Accessibility", "--dry-run"}).status,
        0);
    EXPECT_EQ(valueOf(mute), "0");
}

TEST_F(ResetTest, LeavesASettingWithoutADefaultAlone) {
    const std::string format = "/Sound/Digital Output Audio Format";
    ASSERT_EQ(run({"set", format, "2"}).status, 0);
    const Report report = this->report({"reset", "/Sound"});
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.resultOf(format), "left alone");
    EXPECT_EQ(valueOf(format), "2");
}

TEST_F(ResetTest, OfAPropertyWithoutADefaultIsAnError) {
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    const Outcome outcome = run({"reset", mute, "/Sound/Digital Output Audio Format"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.messages, "klxctl: the set tells no default for "
                                "\"/Sound/Digital Output Audio Format\"\n");
    EXPECT_EQ(valueOf(mute), "1");
}

TEST_F(ResetTest, TellsThatAPropertyIsReadOnly) {
    const Report report = this->report({"reset", "/Network/Type"});
    EXPECT_EQ(report.resultOf("/Network/Type"),
              valueOf("/Network/Type") == "0" ? "unchanged" : "read-only");
    const Report counter = this->report({"reset", "/SetInformation/AutoReset_Count"});
    EXPECT_EQ(counter.status, 3);
    EXPECT_EQ(counter.resultOf("/SetInformation/AutoReset_Count"), "read-only");
}

TEST_F(ResetTest, OfAnUnknownNameResetsNothing) {
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    const Outcome outcome = run({"reset", mute, "/Pictures", "/Sound/Mude"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("no property or menu \"/Pictures\""));
    EXPECT_THAT(outcome.messages, HasSubstr("did you mean\n  \"/Sound/Mute\""));
    EXPECT_EQ(valueOf(mute), "1");
}

TEST_F(ResetTest, OfFactsOnlyIsAnError) {
    const Outcome outcome = run({"reset", "/SetInformation"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.messages, "klxctl: nothing below \"/SetInformation\" can be written\n");
}

TEST_F(ResetTest, NeedsEitherNamesOrAll) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"reset"}, {"reset", "--all", mute}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.messages, HasSubstr("either what is to be reset or --all"));
    }
}

TEST_F(ResetTest, DryRunTellsAndWritesNothing) {
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    const Outcome outcome = run({"reset", mute, "--dry-run"});
    EXPECT_EQ(outcome.output, "PROPERTY     RESULT       VALUE\n"
                              "/Sound/Mute  would apply  \"1\" -> \"0\"\n\n"
                              "1 asked for: 1 would apply\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(valueOf(mute), "1");
}
