#include "KlxctlTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

TEST_F(KlxctlTest, GetPrintsOneValueOnALine) {
    ASSERT_EQ(run({"set", number, "3"}).status, 0);
    const Outcome outcome = run({"get", number});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "3\n");
    EXPECT_EQ(outcome.messages, "");
}

TEST_F(KlxctlTest, GetPrintsEachOfSeveralBehindItsPathAndATab) {
    ASSERT_EQ(run({"set", number, "3"}).status, 0);
    ASSERT_EQ(run({"set", flag, "1"}).status, 0);
    EXPECT_EQ(run({"get", flag, number}).output, flag + "\t1\n" + number + "\t3\n");
}

TEST_F(KlxctlTest, GetPrintsAPathThatIsGivenTwiceTwice) {
    ASSERT_EQ(run({"set", number, "3"}).status, 0);
    EXPECT_EQ(run({"get", number, number}).output, number + "\t3\n" + number + "\t3\n");
}

TEST_F(KlxctlTest, GetPrintsANewlineInAValueAsItIs) {
    ASSERT_EQ(run({"set", text, "one\ntwo"}).status, 0);
    EXPECT_EQ(run({"get", text}).output, "one\ntwo\n");
}

TEST_F(KlxctlTest, GetPrintsBytesThatNoDocumentCanCarry) {
    const std::string bytes = "\x01\xff\x1b[m";
    ASSERT_EQ(run({"set", text, bytes}).status, 0);
    EXPECT_EQ(run({"get", text}).output, bytes + "\n");
}

TEST_F(KlxctlTest, GetOfAnUnknownPathNamesTheNearestAndPrintsNothing) {
    const Outcome outcome =
        run({"get", "/general & privacy/Accessibility/Voice Guide Settings/Sped"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("there is no property \"/general & privacy/"));
    EXPECT_THAT(outcome.messages, HasSubstr("did you mean\n  \"" + number + "\"\n"));
}

TEST_F(KlxctlTest, GetFindsTheNearestNamesInAllCategories) {
    EXPECT_THAT(run({"get", "/Sound/Keyboard Language"}).messages, HasSubstr(text));
    EXPECT_THAT(run({"get", "/Elsewhere/Keyboard Language"}).messages, HasSubstr(text));
}

TEST_F(KlxctlTest, GetReadsNoOtherCategoryWhereTheNearestNameIsInItsOwn) {
    const Outcome outcome = tool().environment("KLX_LOG", "debug").run({"get", number + "s"});
    EXPECT_THAT(outcome.messages, HasSubstr("Creating Voice Guide Settings"));
    EXPECT_THAT(outcome.messages, Not(HasSubstr("Creating Connection")));
}

TEST_F(KlxctlTest, GetOffersFiveNamesAtMost) {
    const Outcome outcome = run({"get", "/General & Privacy"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(std::count(outcome.messages.begin(), outcome.messages.end(), '\n'), 6)
        << outcome.messages;
}

TEST_F(KlxctlTest, GetOfAnUnknownPathAmongOthersPrintsTheKnownOnes) {
    ASSERT_EQ(run({"set", number, "3"}).status, 0);
    const Outcome outcome = run({"get", "/No/Such Thing", number});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, number + "\t3\n");
    EXPECT_THAT(outcome.messages, HasSubstr("\"/No/Such Thing\""));
    EXPECT_THAT(outcome.messages, Not(HasSubstr("Speed")));
}

TEST_F(KlxctlTest, GetReportsEveryUnknownPath) {
    const Outcome outcome = run({"get", "/No/First", "/No/Second"});
    EXPECT_THAT(outcome.messages, HasSubstr("\"/No/First\""));
    EXPECT_THAT(outcome.messages, HasSubstr("\"/No/Second\""));
}

TEST_F(KlxctlTest, GetTakesWordsThatNameNothingForUnknownPaths) {
    for (const std::string word : {"", "/", "//", "Picture", "/Picture", "{}", "%s"}) {
        const Outcome outcome = run({"get", word});
        EXPECT_EQ(outcome.status, 2) << word;
        EXPECT_EQ(outcome.output, "") << word;
        EXPECT_THAT(outcome.messages, HasSubstr("there is no property \"" + word + "\""));
    }
}

TEST_F(KlxctlTest, GetShowsControlCharactersOfAPathAsEscapes) {
    EXPECT_THAT(run({"get", "/a\x1b[2J"}).messages, HasSubstr("\"/a\\x1b[2J\""));
}

TEST_F(KlxctlTest, LogLinesGoToStandardErrorOnly) {
    const std::string quiet = run({"get", number}).output;
    const Outcome outcome = tool().environment("KLX_LOG", "debug").run({"get", number});
    EXPECT_EQ(outcome.output, quiet);
    EXPECT_THAT(outcome.messages, HasSubstr("GetDevicePropValue menuItemName = "));
}
