#include "LogLine.h"

#include "dlog.h"

#include <gtest/gtest.h>

#include <limits>

namespace KLX::Host {
namespace {

TEST(LogLine, NamesEveryPriority) {
    EXPECT_EQ(composeLogLine(DLOG_DEBUG, "KLX", "x", false), "debug KLX: x\n");
    EXPECT_EQ(composeLogLine(DLOG_INFO, "KLX", "x", false), "info KLX: x\n");
    EXPECT_EQ(composeLogLine(DLOG_WARNING, "KLX", "x", false), "warning KLX: x\n");
    EXPECT_EQ(composeLogLine(DLOG_ERROR, "KLX", "x", false), "error KLX: x\n");
    EXPECT_EQ(composeLogLine(0, "KLX", "x", false), "debug KLX: x\n");
    EXPECT_EQ(composeLogLine(9, "KLX", "x", false), "error KLX: x\n");
}

TEST(LogLine, GivesTheJournalItsOwnNumbers) {
    EXPECT_EQ(composeLogLine(DLOG_DEBUG, "KLX", "x", true), "<7>KLX: x\n");
    EXPECT_EQ(composeLogLine(DLOG_INFO, "KLX", "x", true), "<6>KLX: x\n");
    EXPECT_EQ(composeLogLine(DLOG_WARNING, "KLX", "x", true), "<4>KLX: x\n");
    EXPECT_EQ(composeLogLine(DLOG_ERROR, "KLX", "x", true), "<3>KLX: x\n");
}

TEST(LogLine, StaysOneLineWhateverTheText) {
    EXPECT_EQ(composeLogLine(DLOG_ERROR, "KLX", "language\n", false), "error KLX: language\n");
    EXPECT_EQ(composeLogLine(DLOG_ERROR, "KLX", "a\nerror KLX: forged\r\x1b[0m\x7f", false),
              "error KLX: a\\nerror KLX: forged\\x0d\\x1b[0m\\x7f\n");
    EXPECT_EQ(composeLogLine(DLOG_ERROR, "KLX", "\t\xc3\xa4", false), "error KLX: \t\xc3\xa4\n");
    EXPECT_EQ(composeLogLine(DLOG_ERROR, nullptr, "", false), "error -: \n");
}

TEST(LogLine, KnowsTheThresholdsByTheirWords) {
    EXPECT_EQ(parseLogThreshold("debug").lowestPriority, DLOG_DEBUG);
    EXPECT_EQ(parseLogThreshold("info").lowestPriority, DLOG_INFO);
    EXPECT_EQ(parseLogThreshold("warning").lowestPriority, DLOG_WARNING);
    EXPECT_EQ(parseLogThreshold("error").lowestPriority, DLOG_ERROR);
    EXPECT_EQ(parseLogThreshold("off").lowestPriority, std::numeric_limits<int>::max());
    EXPECT_EQ(parseLogThreshold(nullptr).lowestPriority, DLOG_WARNING);
    EXPECT_EQ(parseLogThreshold("").lowestPriority, DLOG_WARNING);
    EXPECT_TRUE(parseLogThreshold("").understood);
    EXPECT_FALSE(parseLogThreshold("Debug").understood);
    EXPECT_EQ(parseLogThreshold("Debug").lowestPriority, DLOG_WARNING);
}

TEST(LogLine, TakesNothingForTheJournalThatIsNotNamedAsSuch) {
    EXPECT_FALSE(isJournalStream(2, nullptr));
    EXPECT_FALSE(isJournalStream(2, ""));
    EXPECT_FALSE(isJournalStream(2, "nonsense"));
    EXPECT_FALSE(isJournalStream(2, "0:0"));
    EXPECT_FALSE(isJournalStream(-1, "0:0"));
}

} // namespace
} // namespace KLX::Host
