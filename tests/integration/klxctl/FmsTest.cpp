#include "KlxctlTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

/// A set whose configuration command keeps what it is told in the set profile.
class FmsTest : public KlxctlTest {
protected:
    FmsTest() {
        writeFile(m_profile, R"({"model": "Configured", "customFeatures":
            {"a/text": "on", "a/flag": true, "a/number": -3, "a/empty": ""}})");
    }

    ToolRun tool() const { return KlxctlTest::tool().environment("KLX_PROFILE", m_profile); }

    Outcome run(const std::vector<std::string>& arguments) const { return tool().run(arguments); }

    /// The tool where a script is the configuration command; its arguments are kept in a file.
    ToolRun toolWithCommand(const std::string& script) const {
        const std::filesystem::path command = folder() / "fconfigd";
        writeFile(command, "#!/bin/sh\nprintf '%s\\n' \"$@\" >" + m_told.string() + "\n" + script);
        std::filesystem::permissions(command, std::filesystem::perms::owner_all);
        return tool().environment("PATH", folder().string() + ":/usr/bin:/bin");
    }

    /// The command of a set that keeps the value, as it stands in JSON.
    std::string keeping(const std::string& value) const {
        return "printf '{\"model\": \"m\", \"customFeatures\": {\"%s\": %s}}' \"$2\" '" + value +
               "' >" + m_profile.string() + "\n";
    }

    std::string told() const { return contentOf(m_told); }

private:
    const std::filesystem::path m_profile = folder() / "set.json";
    const std::filesystem::path m_told = folder() / "told";
};

} // namespace

TEST_F(FmsTest, GetPrintsAValueOfEachType) {
    EXPECT_EQ(run({"fms", "get", "a/text", "--type", "string"}).output, "on\n");
    EXPECT_EQ(run({"fms", "get", "a/flag", "--type", "bool"}).output, "1\n");
    EXPECT_EQ(run({"fms", "get", "a/number", "--type", "int"}).output, "-3\n");
}

TEST_F(FmsTest, GetTakesTheTypeForANumberWhenNoneIsGiven) {
    const Outcome outcome = run({"fms", "get", "a/number"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "-3\n");
    EXPECT_EQ(outcome.messages, "");
}

TEST_F(FmsTest, GetFailsForAnUnknownKeyAnotherTypeAndAnEmptyText) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"a/nothing", "int"},
                                                  {"a/text", "int"},
                                                  {"a/number", "string"},
                                                  {"a/empty", "string"}}) {
        const Outcome outcome = run({"fms", "get", words[0], "--type", words[1]});
        EXPECT_EQ(outcome.status, 1) << words[0];
        EXPECT_EQ(outcome.output, "") << words[0];
        EXPECT_EQ(outcome.messages, "klxctl: the set tells no value of type " + words[1] +
                                        " for \"" + words[0] +
                                        "\"; check the key, or name another type by --type\n");
    }
}

TEST_F(FmsTest, GetRefusesAnUnknownType) {
    for (const char* type : {"", "integer", "String"}) {
        const Outcome outcome = run({"fms", "get", "a/text", "--type", type});
        EXPECT_EQ(outcome.status, 2) << type;
        EXPECT_THAT(outcome.messages, HasSubstr("there is no type \"" + std::string(type) +
                                                "\"; write string, bool or int"));
    }
}

TEST_F(FmsTest, GetRefusesAnEmptyKey) {
    const Outcome outcome = run({"fms", "get", ""});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("the key is empty"));
}

TEST_F(FmsTest, SetRunsTheCommandAndReadsTheValueBack) {
    const Outcome outcome =
        toolWithCommand(keeping("7")).run({"fms", "set", "com.velmora/x", "07"});
    EXPECT_EQ(outcome.status, 0) << outcome.messages;
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages, "");
    EXPECT_EQ(told(), "-s\ncom.velmora/x\n07\n");
}

TEST_F(FmsTest, SetReadsTextsAndFlagsBack) {
    EXPECT_EQ(toolWithCommand(keeping("\"on\"")).run({"fms", "set", "a/x", "on"}).status, 0);
    EXPECT_EQ(toolWithCommand(keeping("true")).run({"fms", "set", "a/x", "1"}).status, 0);
    EXPECT_EQ(toolWithCommand(keeping("\"1\"")).run({"fms", "set", "a/x", "1"}).status, 0);
}

TEST_F(FmsTest, SetKeepsWhatTheCommandWritesOutOfItsOutput) {
    const Outcome outcome =
        toolWithCommand(keeping("7") + "echo stored\n").run({"fms", "set", "a/x", "7"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages, "stored\n");
}

TEST_F(FmsTest, SetComparesTextsByteByByte) {
    EXPECT_EQ(toolWithCommand(keeping("\"024\"")).run({"fms", "set", "a/x", "24"}).status, 3);
    EXPECT_EQ(toolWithCommand(keeping("24")).run({"fms", "set", "a/x", "024"}).status, 0);
}

TEST_F(FmsTest, SetTakesEveryCharacterThatAShellTakesAsItIs) {
    const std::string characters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._/:+-";
    toolWithCommand("").run({"fms", "set", characters, characters});
    EXPECT_EQ(told(), "-s\n" + characters + "\n" + characters + "\n");
}

TEST_F(FmsTest, SetRefusesEveryOtherCharacterAndRunsNothing) {
    const std::string refused = "\x01\t\n !\"#$%&'()*,;<=>?@[\\]^`{|}~\x7f\x80\xff";
    for (const char character : refused) {
        const std::string word = std::string("a") + character + "b";
        EXPECT_EQ(toolWithCommand("").run({"fms", "set", word, "1"}).status, 2) << word;
        EXPECT_EQ(toolWithCommand("").run({"fms", "set", "key", word}).status, 2) << word;
    }
    EXPECT_EQ(told(), "");
}

TEST_F(FmsTest, SetTellsWhatMayBeWritten) {
    EXPECT_THAT(run({"fms", "set", "a;b", "1"}).messages,
                HasSubstr("\"a;b\" cannot be used, because a shell reads it; write letters, digits "
                          "and the characters . _ / : + - only"));
    EXPECT_THAT(run({"fms", "set", "a", ""}).messages, HasSubstr("it is empty; write letters"));
    EXPECT_EQ(run({"fms", "set", "", "1"}).status, 2);
}

TEST_F(FmsTest, SetTellsThatTheSetKeptAnotherValue) {
    const Outcome outcome = toolWithCommand(keeping("8")).run({"fms", "set", "a/x", "7"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.messages, "klxctl: \"a/x\" does not hold \"7\" after it was written; lines "
                                "of the log tell more (see KLX_LOG)\n");
}

TEST_F(FmsTest, SetTellsThatTheCommandFailed) {
    const ToolRun failing = toolWithCommand("exit 1\n").environment("KLX_LOG", "warning");
    const Outcome outcome = failing.run({"fms", "set", "a/number", "7"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.messages, HasSubstr("Failed to set FMS key  value 256"));
}

TEST_F(FmsTest, SetTellsThatThereIsNoSuchCommand) {
    const Outcome outcome =
        tool().environment("PATH", "/usr/bin:/bin").run({"fms", "set", "a", "7"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.messages, HasSubstr("fconfigd"));
}

TEST_F(FmsTest, NeedsOneOfItsCommands) {
    EXPECT_EQ(run({"fms"}).status, 2);
    EXPECT_EQ(run({"fms", "put", "a", "1"}).status, 2);
    EXPECT_EQ(run({"fms", "get"}).status, 2);
    EXPECT_EQ(run({"fms", "set", "a"}).status, 2);
}

TEST_F(FmsTest, ReadsAKeyThatIsCalledAsACommand) {
    EXPECT_THAT(run({"fms", "get", "set"}).messages, HasSubstr("for \"set\""));
}
