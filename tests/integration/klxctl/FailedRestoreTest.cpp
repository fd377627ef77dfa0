#include "RestoreTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

/// A restore of two settings over a library that fails to read: each is read once before they are
/// written, and once afterwards.
class FailedRestore : public RestoreTest {
protected:
    const std::string color = "/Picture/Color";

    Outcome outcomeOf(std::vector<std::string> arguments, const std::string& failing) const {
        arguments.insert(arguments.begin(), "restore");
        arguments.push_back(fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "51"}})));
        return tool()
            .environment("LD_PRELOAD", KLXCTL_FAULTY_LIBRARY)
            .environment("KLXCTL_TEST_READS", failing)
            .environment("ASAN_OPTIONS", sanitizerOptions)
            .run(arguments);
    }

    static std::string notRead(const std::string& path) {
        return "klxctl: the library could not read \"" + path + "\"; its lines above tell why\n";
    }
};

} // namespace

TEST_F(FailedRestore, BeforeTheFirstWritingWritesNothing) {
    const Outcome outcome = outcomeOf({"--json"}, "2 2");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages, notRead(color));
    EXPECT_EQ(valueOf(backlight), "35");
}

TEST_F(FailedRestore, TellsWhatCouldNotBeReadAgainAndWhatWasApplied) {
    const Outcome outcome = outcomeOf({}, "3 3");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "PROPERTY            RESULT    VALUE\n"
                              "/Picture/Backlight  not read  wanted \"12\"\n"
                              "/Picture/Color      applied   \"50\" -> \"51\"\n\n"
                              "2 asked for: 1 applied, 1 not read\n");
    EXPECT_EQ(outcome.messages, notRead(backlight));
    EXPECT_EQ(valueOf(backlight), "12");
}

TEST_F(FailedRestore, PutsBackAndReportsWhenAllOrNothingIsWanted) {
    const Outcome outcome = outcomeOf({"--all-or-nothing", "--json"}, "3 4");
    EXPECT_THAT(outcome.messages, HasSubstr(notRead(backlight)));
    EXPECT_THAT(outcome.messages, HasSubstr("what had been changed was put back"));
    const Report report = reportIn(outcome);
    EXPECT_EQ(report.status, 1);
    EXPECT_TRUE(report.root["failed"].asBool());
    EXPECT_EQ(report.count("put back"), 2);
    EXPECT_EQ(report.of(backlight, "held"), "35");
    EXPECT_EQ(valueOf(backlight), "35");
    EXPECT_EQ(valueOf(color), "50");
}

TEST_F(FailedRestore, PutsBackWhatItCanNoLongerReadAndSaysSo) {
    const Outcome outcome = outcomeOf({"--all-or-nothing", "--json"}, "3 1000");
    EXPECT_THAT(outcome.messages,
                HasSubstr("this could not be put back:\n  \"/Picture/Backlight\""));
    const Report report = reportIn(outcome);
    EXPECT_EQ(report.status, 1);
    EXPECT_EQ(report.count("not put back"), 2);
    EXPECT_EQ(report.of(backlight, "held"), "");
    EXPECT_EQ(valueOf(backlight), "35");
    EXPECT_EQ(valueOf(color), "50");
}
