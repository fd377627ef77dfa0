#include "KlxctlTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

TEST_F(KlxctlTest, SetSaysNothingWhenTheValueIsHeld) {
    const Outcome outcome = run({"set", number, "4"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages, "");
}

TEST_F(KlxctlTest, SetIsSeenByTheNextProcess) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    EXPECT_EQ(valueOf(number), "4");
    ASSERT_EQ(run({"set", number, "5"}).status, 0);
    EXPECT_EQ(valueOf(number), "5");
}

TEST_F(KlxctlTest, SetTakesAnyTextWhereTheSettingIsText) {
    for (const std::string value : {"-x", "--help", "", "{}", "[a,b]", "get", "a=b", "\"", "*"}) {
        EXPECT_EQ(run({"set", "--", text, value}).status, 0) << value;
        EXPECT_EQ(valueOf(text), value);
    }
}

TEST_F(KlxctlTest, SetTakesANegativeNumberWithoutFurtherMarks) {
    EXPECT_EQ(run({"set", number, "-7"}).status, 0);
    EXPECT_EQ(valueOf(number), "-7");
}

TEST_F(KlxctlTest, SetComparesWholeNumbersAsNumbers) {
    EXPECT_EQ(run({"set", number, "070"}).status, 0);
    EXPECT_EQ(valueOf(number), "70");
    EXPECT_EQ(run({"set", number, "+8"}).status, 0);
}

TEST_F(KlxctlTest, SetOfAFlagThatIsStoredAsAnotherNumberIsNotHeld) {
    const Outcome outcome = run({"set", flag, "5"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("\"" + flag + "\""));
    EXPECT_THAT(outcome.messages, HasSubstr("\"5\""));
    EXPECT_THAT(outcome.messages, HasSubstr("\"1\""));
}

TEST_F(KlxctlTest, SetOfAValueThatTheSettingCannotTakeTellsBothValues) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    const Outcome outcome = run({"set", number, "fast"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.messages, HasSubstr("\"fast\""));
    EXPECT_THAT(outcome.messages, HasSubstr("\"4\""));
    EXPECT_THAT(outcome.messages,
                HasSubstr("the set does not take this value; with KLX_LOG=debug"));
    EXPECT_EQ(valueOf(number), "4");
}

TEST_F(KlxctlTest, SetOfAPartlyUnderstoodNumberIsNotHeld) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    const Outcome outcome = run({"set", number, "7up"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.messages, HasSubstr("does not hold \"7up\": it holds \"7\""));
}

TEST_F(KlxctlTest, SetOfANumberBeyondAnIntegerIsNotHeld) {
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    EXPECT_EQ(run({"set", number, "99999999999999999999"}).status, 3);
    EXPECT_EQ(valueOf(number), "4");
}

TEST_F(KlxctlTest, SetOfAReadOnlyPropertyIsNotHeld) {
    const std::string readOnly = "/SetInformation/Firmware_Version";
    const Outcome outcome = run({"set", readOnly, "no such version"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.messages, HasSubstr("\" as before; it is read-only\n"));
}

TEST_F(KlxctlTest, SetOfAnUnknownPathNamesTheNearest) {
    const Outcome outcome = run({"set", number + "s", "1"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr("did you mean\n  \"" + number + "\"\n"));
}

TEST_F(KlxctlTest, SetInAReadOnlyStateFolderIsNotHeldAndTheLogTellsWhy) {
    namespace fs = std::filesystem;
    ASSERT_EQ(run({"set", number, "4"}).status, 0);
    for (const auto& entry : fs::directory_iterator(stateFolder())) {
        fs::permissions(entry.path(), fs::perms::owner_read);
    }
    fs::permissions(stateFolder(), fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome outcome =
        tool().underFilePermissions().environment("KLX_LOG", "error").run({"set", number, "9"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.messages, HasSubstr(stateFolder().string()));
    EXPECT_THAT(outcome.messages, HasSubstr("\"" + number + "\" does not hold \"9\""));
    fs::permissions(stateFolder(), fs::perms::owner_all);
    for (const auto& entry : fs::directory_iterator(stateFolder())) {
        fs::permissions(entry.path(), fs::perms::owner_read | fs::perms::owner_write);
    }
    EXPECT_EQ(valueOf(number), "4");
}
