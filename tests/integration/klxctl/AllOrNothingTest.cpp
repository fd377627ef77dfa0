#include "RestoreTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const char* const option = "--all-or-nothing";

class AllOrNothingTest : public RestoreTest {
protected:
    const std::string color = "/Picture/Color";

    /// The model that the tests play, but with a backlight that goes up to 100.
    std::string brighterProfile() const {
        std::string profile = contentOf(KLX_SHIPPED_PROFILES "/standard.json");
        const std::string range = R"("backlight": { "minimum": 0, "maximum": 50)";
        const std::size_t at = profile.find(range);
        EXPECT_NE(at, std::string::npos);
        profile.replace(at + range.size() - 2, 2, "100");
        writeFile(outputFolder() / "brighter.json", profile);
        return outputFolder() / "brighter.json";
    }
};

} // namespace

TEST_F(AllOrNothingTest, KeepsEverythingWhenEverythingIsHeld) {
    const Report report =
        restore(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "51"}}), option);
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(report.count("applied"), 2);
    EXPECT_FALSE(report.root["putBack"].asBool());
    EXPECT_EQ(report.messages, "");
    EXPECT_EQ(valueOf(backlight), "12");
}

TEST_F(AllOrNothingTest, PutsBackWhatWasThereWhenTheSetRefusesAValue) {
    ASSERT_EQ(run({"set", backlight, "20"}).status, 0);
    const Report report = restore(
        jsonOf("Picture", {{"Backlight", "12"}, {"Color", "999"}, {"Contrast", "95"}}), option);
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf(color), "refused");
    EXPECT_EQ(report.resultOf(backlight), "put back");
    EXPECT_EQ(report.of(backlight, "held"), "20");
    EXPECT_EQ(report.resultOf("/Picture/Contrast"), "unchanged");
    EXPECT_TRUE(report.root["putBack"].asBool());
    EXPECT_THAT(report.messages, HasSubstr("what had been changed was put back"));
    EXPECT_EQ(valueOf(backlight), "20");
    EXPECT_EQ(valueOf(color), "50");
}

TEST_F(AllOrNothingTest, PutsBackWhatAnotherModeHeld) {
    const Report report = restore(
        jsonOf("Picture", {{"Backlight", "12"}, {"Color", "999"}, {"Picture Mode", "0"}}), option);
    EXPECT_EQ(report.resultOf(backlight), "put back");
    EXPECT_EQ(report.resultOf(mode), "put back");
    EXPECT_EQ(valueOf(mode), "1");
    EXPECT_EQ(valueOf(backlight), "35");
    ASSERT_EQ(run({"set", mode, "0"}).status, 0);
    EXPECT_EQ(valueOf(backlight), "50");
}

TEST_F(AllOrNothingTest, WritesNothingWhenNotEverythingCanBeHeld) {
    for (const char* hopeless : {R"("Picture": {"Colour": {"Value": "1"}})",
                                 R"("SetInformation": {"SerialNumber": {"Value": "x"}})",
                                 R"("Picture": {"Color": {"Value": []}})"}) {
        const std::string document =
            std::string(R"({"Sound": {"Mute": {"Value": "1"}}, )") + hopeless + "}";
        const std::string file = fileOf(document);
        const Outcome outcome = run({"restore", file, option});
        EXPECT_EQ(outcome.status, 3);
        EXPECT_THAT(outcome.messages,
                    StartsWith("klxctl: nothing is written, for not everything can be held"));
        EXPECT_EQ(reportIn(run({"restore", file, option, "--json"})).resultOf(mute), "not written");
        EXPECT_EQ(valueOf(mute), "0");
    }
}

TEST_F(AllOrNothingTest, TellsHowToLeaveReadOnlyPropertiesOut) {
    const std::string file = fileOf(jsonOf("SetInformation", {{"SerialNumber", "x"}}));
    EXPECT_THAT(run({"restore", file, option}).messages, HasSubstr("--settings-only"));
    EXPECT_EQ(run({"restore", file, option, "--settings-only"}).status, 0);
}

TEST_F(AllOrNothingTest, AnEmptyValueDoesNotStandAgainstTheRest) {
    const Report report = restore(jsonOf("Picture", {{"Backlight", "12"}, {"Tint", ""}}), option);
    EXPECT_EQ(report.status, 0);
    EXPECT_EQ(valueOf(backlight), "12");
}

TEST_F(AllOrNothingTest, DryRunForeseesThatNothingWouldBeWritten) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Colour", "1"}}));
    const Report report = this->report({"restore", file, option, "--dry-run"});
    EXPECT_EQ(report.resultOf(backlight), "not written");
    EXPECT_EQ(report.status, 3);
}

TEST_F(AllOrNothingTest, NamesWhatCouldNotBePutBack) {
    const std::string profile = brighterProfile();
    ASSERT_EQ(tool().environment("KLX_PROFILE", profile).run({"set", backlight, "80"}).status, 0);
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "999"}}));
    const Outcome outcome = run({"restore", file, option});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.output, HasSubstr("/Picture/Backlight  not put back  wanted \"12\", holds "
                                          "\"12\", held \"80\" before\n"));
    EXPECT_EQ(outcome.messages, "klxctl: not everything could be held, and this could not be put "
                                "back:\n  \"/Picture/Backlight\"\n");
}

TEST_F(AllOrNothingTest, OfAResetPutsBackToo) {
    ASSERT_EQ(run({"set", mute, "1"}).status, 0);
    const Report report = this->report({"reset", mute, "/SetInformation/AutoReset_Count", option});
    EXPECT_EQ(report.status, 3);
    EXPECT_EQ(report.resultOf(mute), "not written");
    EXPECT_EQ(valueOf(mute), "1");
}
