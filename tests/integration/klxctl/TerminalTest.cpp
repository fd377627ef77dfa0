#include "RestoreTest.h"

#include <gmock/gmock.h>

#include <chrono>

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

/// The tool at a terminal, whose two streams come out as one.
class TerminalTest : public RestoreTest {
protected:
    std::string shown(ToolRun run, const std::string& arguments) const {
        return run.environment("TERM", "xterm")
            .runProgram({"script", "-qec", std::string(KLXCTL_TOOL) + " " + arguments, "/dev/null"})
            .output;
    }

    std::string slowDocument() const {
        return fileOf(jsonOf("Picture", {{"Backlight", "12"},
                                         {"Brightness", "12"},
                                         {"Color", "12"},
                                         {"Contrast", "12"},
                                         {"Gamma", "2"},
                                         {"Gamma Value", "1"},
                                         {"HDR+ Mode", "1"},
                                         {"Sharpness", "12"},
                                         {"Tint", "70/30"}}));
    }
};

const char* const erased = "\r\033[K";
const char* const colour = "\033\\[[0-9;]*m";

/// What comes first goes by how fast the machine reads.
const char* const workLine = "^\r\033\\[K(reading|writing) [^\r]+\r\033\\[K";

} // namespace

TEST_F(TerminalTest, LongWorkShowsWhatItIsAtAndErasesIt) {
    const std::string screen = shown(toolOverDisk("delay"), "restore " + slowDocument());
    EXPECT_THAT(screen, ContainsRegex(workLine));
    EXPECT_THAT(screen, HasSubstr(std::string(erased) + "PROPERTY "));
    EXPECT_THAT(screen, HasSubstr("9 asked for: 9 applied"));
}

TEST_F(TerminalTest, ElsewhereNothingIsShownOfLongWork) {
    const Outcome outcome = toolOverDisk("delay").run({"restore", slowDocument()});
    EXPECT_EQ(outcome.messages, "");
    EXPECT_THAT(outcome.output, StartsWith("PROPERTY "));
}

TEST_F(TerminalTest, WorkOfLessThanHalfASecondShowsNothing) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}}));
    const auto begin = std::chrono::steady_clock::now();
    const std::string screen = shown(tool(), "restore " + file);
    const bool wasLong = std::chrono::steady_clock::now() - begin >= std::chrono::milliseconds(500);
    EXPECT_TRUE(wasLong || screen.find("PROPERTY ") == 0) << screen;
}

TEST_F(TerminalTest, ResultsAreColouredThereAndNowhereElse) {
    const std::string file = fileOf(jsonOf("Picture", {{"Backlight", "12"}, {"Color", "999"}}));
    const std::string screen = shown(tool().environment("NO_COLOR", ""), "restore " + file);
    EXPECT_THAT(screen, HasSubstr("\033[32mapplied\033[0m"));
    EXPECT_THAT(screen, HasSubstr("\033[31mrefused\033[0m"));
    EXPECT_THAT(run({"restore", file}).output, Not(HasSubstr("\033")));
}

TEST_F(TerminalTest, NothingIsColouredForThoseWhoWantNoColours) {
    const std::string file = fileOf(jsonOf("Picture", {{"Color", "999"}}));
    EXPECT_THAT(shown(tool().environment("NO_COLOR", "1"), "restore " + file),
                Not(ContainsRegex(colour)));
}
