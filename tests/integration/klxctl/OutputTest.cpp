#include "KlxctlTest.h"

#include <csignal>

namespace {

const std::string closedMessage = "klxctl: cannot write to standard output: Bad file descriptor\n";
const std::string fullMessage =
    "klxctl: cannot write to standard output: No space left on device\n";

} // namespace

TEST_F(KlxctlTest, DataForAClosedOutputIsAFailure) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"get", number}, {"dump"}, {"--help"}, {"--version"}}) {
        const Outcome outcome = tool().outputClosed().run(words);
        EXPECT_EQ(outcome.status, 1) << words.front();
        EXPECT_EQ(outcome.messages, closedMessage);
    }
}

TEST_F(KlxctlTest, DataForAFullOutputIsAFailure) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"get", number}, {"dump"}, {"--help"}, {"--version"}}) {
        const Outcome outcome = tool().outputTo("/dev/full").run(words);
        EXPECT_EQ(outcome.status, 1) << words.front();
        EXPECT_EQ(outcome.messages, fullMessage);
    }
}

TEST_F(KlxctlTest, WhatWritesNoDataNeedsNoOutput) {
    EXPECT_EQ(tool().outputClosed().run({"set", number, "4"}).status, 0);
    EXPECT_EQ(tool().outputTo("/dev/full").run({"set", number, "5"}).status, 0);
    const std::filesystem::path file = outputFolder() / "out.xml";
    EXPECT_EQ(tool().outputClosed().run({"dump", "-o", file}).status, 0);
    EXPECT_EQ(contentOf(file), run({"dump"}).output);
}

// A store that is opened while a standard stream's number is free would get that number, and with
// it what is written to the stream.
TEST_F(KlxctlTest, WhatIsWrittenToClosedStreamsNeverReachesTheStore) {
    ASSERT_EQ(run({"set", text, "kept"}).status, 0);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(tool().outputClosed().run({"get", text, number}).status, 1);
        EXPECT_EQ(tool().streamsClosed().run({"get", text, number}).status, 1);
        EXPECT_EQ(tool().streamsClosed().environment("KLX_LOG", "debug").run({"dump"}).status, 1);
    }
    EXPECT_EQ(valueOf(text), "kept");
}

TEST_F(KlxctlTest, AReaderThatWentAwayEndsTheToolQuietly) {
    const Outcome outcome = tool().outputUnread().run({"dump"});
    EXPECT_EQ(outcome.signal, SIGPIPE);
    EXPECT_EQ(outcome.messages, "");
}

TEST_F(KlxctlTest, AReaderThatWentAwayIsAFailureWhereTheSignalIsIgnored) {
    const Outcome outcome = tool().outputUnread().runProgram(
        {"sh", "-c", R"(trap '' PIPE; exec "$0" dump)", KLXCTL_TOOL});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.messages, "klxctl: cannot write to standard output: Broken pipe\n");
}

TEST_F(KlxctlTest, OutputGoesIntoAPipeWhole) {
    const Outcome outcome = tool().runProgram({"sh", "-c", R"("$0" dump | cat)", KLXCTL_TOOL});
    EXPECT_EQ(outcome.output, run({"dump"}).output);
}
