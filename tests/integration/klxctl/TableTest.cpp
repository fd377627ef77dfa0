#include "Table.h"
#include "JsonText.h"
#include "Messages.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <cstdlib>

namespace {

/// The reading and the writing end of a terminal.
class Terminal : public testing::Test {
protected:
    Terminal() {
        setenv("TERM", "xterm", 1);
        unsetenv("NO_COLOR");
        openpty(&m_outside, &m_inside, nullptr, nullptr, nullptr);
    }
    ~Terminal() override {
        close(m_outside);
        close(m_inside);
    }

    int m_outside = -1;
    int m_inside = -1;
};

} // namespace

TEST(Table, HasColumnsAsWideAsTheirWidestCell) {
    Table table({"A", "LONG", "B"});
    table.add({"wide", "x", "1"});
    table.add({"", "longer", "2"});
    EXPECT_EQ(table.text(false), "A     LONG    B\n"
                                 "wide  x       1\n"
                                 "      longer  2\n");
}

TEST(Table, IsNotWidenedByOneHugeCell) {
    Table table({"A", "B"});
    table.add({std::string(1000, 'x'), "1"});
    table.add({"y", "2"});
    EXPECT_EQ(table.text(false), "A" + std::string(101, ' ') + "B\n" + std::string(1000, 'x') +
                                     "  1\ny" + std::string(101, ' ') + "2\n");
}

TEST(Table, HasNoBlanksAtTheEndOfALine) {
    Table table({"A", "B", "C"});
    table.add({"1", "", ""});
    EXPECT_EQ(table.text(false), "A  B  C\n1\n");
}

TEST(Table, CountsCharactersAndNotBytes) {
    Table table({"A", "B"});
    table.add({"d\u00E9j\u00E0", "1"});
    table.add({"vu..", "2"});
    EXPECT_EQ(table.text(false), "A     B\nd\u00E9j\u00E0  1\nvu..  2\n");
}

TEST(Table, ColoursCellsAndNotTheBlanksBehindThem) {
    Table table({"A", "B"});
    table.add({Cell("x", Tone::Good), "1"});
    table.add({Cell("yyy", Tone::Bad), Cell("2", Tone::Faint)});
    EXPECT_EQ(table.text(true), "A    B\n"
                                "\033[32mx\033[0m    1\n"
                                "\033[31myyy\033[0m  \033[2m2\033[0m\n");
}

TEST(Table, ShowsControlCharactersAsEscapes) {
    Table table({"A"});
    table.add({"\033[2J\nx"});
    EXPECT_EQ(table.text(false), "A\n\\x1b[2J\\x0ax\n");
}

TEST(Messages, EscapeTheControlCharactersOfUnicode) {
    EXPECT_EQ(escaped("a\xC2\x9B"
                      "31m\xC2\xA0\xC3\x9F\x7F"),
              "a\\xc2\\x9b31m\xC2\xA0\xC3\x9F\\x7f");
}

TEST_F(Terminal, MayBeColoured) {
    EXPECT_TRUE(mayColour(m_inside));
}

TEST_F(Terminal, IsNotColouredWhenSomebodyAskedForNone) {
    setenv("NO_COLOR", "1", 1);
    EXPECT_FALSE(mayColour(m_inside));
    setenv("NO_COLOR", "", 1);
    EXPECT_TRUE(mayColour(m_inside));
}

TEST_F(Terminal, IsNotColouredWhenItKnowsNoColours) {
    setenv("TERM", "dumb", 1);
    EXPECT_FALSE(mayColour(m_inside));
    unsetenv("TERM");
    EXPECT_FALSE(mayColour(m_inside));
}

TEST_F(Terminal, IsWhatColoursNeed) {
    const int file = open("/dev/null", O_WRONLY | O_CLOEXEC);
    EXPECT_FALSE(mayColour(file));
    close(file);
}

TEST(JsonText, IsReadableWhateverTheBytes) {
    Json::Value root;
    root["a"] = "\xFF\n\"\u00E9";
    const std::string text = jsonText(root);
    EXPECT_EQ(text, "{\n  \"a\" : \"\\ufffd\\n\\\"\\u00e9\"\n}\n");
}
