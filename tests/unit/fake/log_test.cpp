#include "FakeTest.h"
#include "dlog.h"
#include "vconf.h"

#include <sstream>
#include <stdexcept>

namespace klx {
namespace {

using fake::Line;
using fake::LineIn;
using fake::LogLine;
using ::testing::_;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class LogTest : public FakeTest {
protected:
    static void logReading() {
        __dlog_print(0, 5, "KLX", "%s: %s(%d) > Failed for %s [%d]", "a.cpp", "read", 12, "k", -3);
    }
};

TEST_F(LogTest, ALineIsTakenApart) {
    logReading();
    ASSERT_EQ(fake::logs().size(), 1U);
    const LogLine line = fake::logs().front();
    EXPECT_EQ(line.logId, 0);
    EXPECT_EQ(line.priority, 5);
    EXPECT_EQ(line.tag, "KLX");
    EXPECT_EQ(line.file, "a.cpp");
    EXPECT_EQ(line.function, "read");
    EXPECT_EQ(line.line, 12);
    EXPECT_EQ(line.message, "Failed for k [-3]");
    EXPECT_EQ(line.format, "%s: %s(%d) > Failed for %s [%d]");
    EXPECT_TRUE(line.conforming);
}

TEST_F(LogTest, AnUnconformingLineIsKeptWhole) {
    __dlog_print(0, 4, "KLX", "%s - %d", "plain", 1);
    ASSERT_EQ(fake::logs().size(), 1U);
    EXPECT_FALSE(fake::logs().front().conforming);
    EXPECT_EQ(fake::logs().front().message, "plain - 1");
    EXPECT_EQ(fake::logs().front().function, "");
    EXPECT_THAT(fake::logs(), Not(Contains(Line(4, "", "plain - 1"))));
}

TEST_F(LogTest, LongMessagesAndPercentSignsSurvive) {
    const std::string text(5000, '%');
    __dlog_print(0, 3, "KLX", "%s: %s(%d) > %s", "a.cpp", "f", 1, text.c_str());
    EXPECT_THAT(fake::messages(3), ElementsAre(text));
}

TEST_F(LogTest, MessagesAreChosenByPriority) {
    logReading();
    __dlog_print(0, 6, "KLX", "%s: %s(%d) > worse", "a.cpp", "read", 13);
    EXPECT_THAT(fake::messages(5), ElementsAre("Failed for k [-3]"));
    EXPECT_THAT(fake::messages(6), ElementsAre("worse"));
    EXPECT_THAT(fake::messages(3), IsEmpty());
}

TEST_F(LogTest, LinesAreNoCallsButShareTheirOrder) {
    vconf_set_int("k", 1);
    logReading();
    vconf_set_int("k", 2);
    EXPECT_THAT(fake::calls(), ElementsAre(R"(vconf_set_int("k", 1))", R"(vconf_set_int("k", 2))"));
    EXPECT_THAT(fake::history(),
                ElementsAre(R"(vconf_set_int("k", 1))", "log(5) read: Failed for k [-3]",
                            R"(vconf_set_int("k", 2))"));
    EXPECT_THROW(fake::callsTo("__dlog_print"), std::invalid_argument);
}

TEST_F(LogTest, TheMatcherLooksAtEveryPart) {
    logReading();
    const auto lines = fake::logs();
    EXPECT_THAT(lines, Contains(Line(5, "read", "Failed for k [-3]")));
    EXPECT_THAT(lines, Contains(Line(_, "read", HasSubstr("k [-3]"))));
    EXPECT_THAT(lines, Not(Contains(Line(6, "read", "Failed for k [-3]"))));
    EXPECT_THAT(lines, Not(Contains(Line(5, "write", "Failed for k [-3]"))));
    EXPECT_THAT(lines, Not(Contains(Line(5, "read", "Failed for k"))));
    EXPECT_THAT(lines, Contains(LineIn("a.cpp", 5, "read", _)));
    EXPECT_THAT(lines, Not(Contains(LineIn("b.cpp", 5, "read", _))));
}

TEST_F(LogTest, TheMatcherInsistsOnTheLibrarysLogAndTag) {
    __dlog_print(1, 5, "KLX", "%s: %s(%d) > x", "a.cpp", "f", 1);
    __dlog_print(0, 5, "XLK", "%s: %s(%d) > x", "a.cpp", "f", 1);
    EXPECT_THAT(fake::logs(), Not(Contains(Line(5, "f", "x"))));
}

TEST_F(LogTest, ALinePrintsAsALogWould) {
    logReading();
    std::ostringstream out;
    out << fake::logs().front();
    EXPECT_EQ(out.str(), "KLX/5 a.cpp: read(12) > Failed for k [-3]");
}

TEST_F(LogTest, LinesCompareByEveryField) {
    logReading();
    logReading();
    const auto lines = fake::logs();
    EXPECT_EQ(lines[0], lines[1]);
    LogLine other = lines[0];
    other.line = 99;
    EXPECT_NE(lines[0], other);
}

TEST_F(LogTest, TheLogItselfCanFailOrThrow) {
    scene.fail("__dlog_print", -1);
    EXPECT_EQ(__dlog_print(0, 3, "KLX", "%s: %s(%d) > x", "a", "b", 1), -1);
    scene.throwFrom("__dlog_print", std::runtime_error("full"));
    EXPECT_THROW(logReading(), std::runtime_error);
    EXPECT_EQ(fake::logs().size(), 2U);
}

} // namespace
} // namespace klx
