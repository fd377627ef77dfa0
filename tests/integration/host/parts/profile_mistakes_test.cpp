#include "HostTest.h"

#include "SetProfile.h"

#include <string>

namespace KLX::Host {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/** What is said about a profile that has a mistake. */
class ProfileMistakes : public HostTest {
protected:
    std::string file(const std::string& name) const { return m_folder.path(name + ".json"); }

    std::string messageFor(const std::string& name) const {
        try {
            loadProfile(name, m_folder.path());
        } catch (const HostFailure& failure) {
            EXPECT_EQ(failure.error(), HostError::ProfileInvalid);
            return failure.what();
        }
        return "no mistake was found";
    }

    /** The message about a document, without the file's name in front. */
    std::string about(const std::string& json) const {
        writeFile(file("p"), json);
        const std::string message = messageFor("p");
        EXPECT_THAT(message, StartsWith(file("p") + ": "));
        return message.substr(file("p").size() + 2);
    }

    /** The same with one section beside the model. */
    std::string aboutSection(const std::string& section) const {
        return about(R"({"model": "P", )" + section + "}");
    }
};

TEST_F(ProfileMistakes, NameTheLineOfWhatIsNotJson) {
    EXPECT_THAT(about("{\n  \"model\": 'P'\n}"), HasSubstr("Line 2"));
    EXPECT_THAT(about(R"({"model": "P"} {})"), StartsWith("is not JSON"));
    EXPECT_THAT(about(R"({"model": "P", "model": "Q"})"), StartsWith("is not JSON"));
    EXPECT_THAT(about(std::string(100000, '[')), StartsWith("is not JSON"));
    EXPECT_THAT(about(""), StartsWith("is not JSON"));
    EXPECT_EQ(about("[]"), "$: expected an object");
}

TEST_F(ProfileMistakes, NameTheFileThatIsMissing) {
    EXPECT_THAT(messageFor("missing"), StartsWith(file("missing") + ": cannot be opened"));
}

TEST_F(ProfileMistakes, NameTheMemberThatIsMissingOrUnknown) {
    EXPECT_EQ(about("{}"), "$: expected a member \"model\", found an object");
    EXPECT_THAT(aboutSection(R"("colour": 1)"),
                StartsWith("colour: expected no such member, only model, settings,"));
}

TEST_F(ProfileMistakes, NameThePlaceAndWhatWasExpectedThere) {
    struct Row {
        const char* section;
        const char* message;
    };
    for (const Row& row : {
             Row{R"("settings": [])", "settings: expected an object, found an array"},
             Row{R"("settings": {"db/x": 1})", "settings[\"db/x\"]: expected an object, found 1"},
             Row{R"("settings": {"db/x": {}})",
                 "settings[\"db/x\"]: expected a member \"type\", found an object"},
             Row{R"("settings": {"db/x": {"type": "int", "default": "1"}})",
                 "settings[\"db/x\"].default: expected an integer of 32 bits, found \"1\""},
             Row{R"("settings": {"db/x": {"type": "int", "default": 1.0}})",
                 "settings[\"db/x\"].default: expected an integer of 32 bits, found 1.0"},
             Row{R"("settings": {"db/x": {"type": "int", "default": 2147483648}})",
                 "settings[\"db/x\"].default: expected an integer of 32 bits, found 2147483648"},
             Row{R"("settings": {"db/x": {"type": "bool", "default": 1}})",
                 "settings[\"db/x\"].default: expected true or false, found 1"},
             Row{R"("settings": {"db/x": {"type": "string", "default": "\u0000"}})",
                 "settings[\"db/x\"].default: expected a text without a zero character, found "
                 "\"\\u0000\""},
             Row{R"("settings": {"file/x": {"type": "int"}})",
                 "settings[\"file/x\"]: expected a key that begins with db/ or memory/ and has at "
                 "most 511 bytes, found an object"},
             Row{R"("systemInformation": {"eight": 1})",
                 "systemInformation.eight: expected a number as the member's name, found 1"},
             Row{R"("systemInformation": {"08": 1})",
                 "systemInformation.08: expected a number as the member's name, found 1"},
             Row{R"("systemInformation": {"8": []})",
                 "systemInformation.8: expected a number, true, false or a text, found an array"},
             Row{R"("systemInformation": {"8": "host"})",
                 "systemInformation.8: expected a value: the machine knows only 128 (firmware "
                 "version) and 187 (serial number), found \"host\""},
             Row{R"("systemInformation": {"187": {"value": "own"}})",
                 "systemInformation.187.value: expected \"host\", found \"own\""},
             Row{R"("systemSettings": {"10007": {"type": "int"}})",
                 "systemSettings.10007: expected no declaration here: this is the same value as "
                 "settings[\"db/menu/system/auto_protection_time\"], found an object"},
             Row{R"("runtimeInformation": {"10010": 1})",
                 "runtimeInformation.10010: expected no value here: this mirrors system setting "
                 "10008, found 1"},
             Row{R"("sources": {"inputs": {}, "initial": "TV"})",
                 "sources.initial: expected the name of one of sources.inputs, found \"TV\""},
             Row{R"("sources": {"inputs": {"A": {"id": 1}, "B": {"id": 1}}, "initial": "A"})",
                 "sources.inputs.B.id: expected a number that no other source has, found 1"},
             Row{R"("sources": {"inputs": {"A": {"id": 1, "port": "db/x"}}, "initial": "A"})",
                 "sources.inputs.A.port: expected the key of an int in settings, found \"db/x\""},
             Row{R"("switches": {"hdmiCec": 1, "wifi": true, "wakeOnMobile": true})",
                 "switches.hdmiCec: expected true or false, found 1"},
         }) {
        EXPECT_EQ(aboutSection(row.section), row.message);
    }
}

TEST_F(ProfileMistakes, NameControlsThatCannotBe) {
    struct Row {
        const char* section;
        const char* message;
    };
    for (const Row& row : {
             Row{R"("controls": {"contrast": {"minimum": 0, "maximum": 256, "default": 1}})",
                 "controls.contrast.maximum: expected an integer from 0 to 255, found 256"},
             Row{R"("controls": {"backlight": {"minimum": 5, "maximum": 4, "default": 5}})",
                 "controls.backlight.maximum: expected an integer from 5 to 2147483647, found 4"},
             Row{R"("controls": {"backlight": {"minimum": 0, "maximum": 4, "default": 5}})",
                 "controls.backlight.default: expected an integer from 0 to 4, found 5"},
             Row{R"("controls": {"backlight": {"minimum": 0, "maximum": 4, "default": 3,
                     "defaultsByPictureMode": {"1": 2}}})",
                 "controls.backlight.defaultsByPictureMode.1: expected the number of one of "
                 "pictureModes as the member's name, found 2"},
             Row{R"("controls": {"picture_mode": {"minimum": 0, "maximum": 0, "default": 0}})",
                 "controls.picture_mode: expected a range that pictureModes covers, found an "
                 "object"},
             Row{R"("settings": {"db/menu/picture/picturesize/mode":
                     {"type": "int", "default": 1}}, "pictureSizes": {"0": "Wide"})",
                 "settings[\"db/menu/picture/picturesize/mode\"].default: expected one of "
                 "pictureSizes, found 1"},
         }) {
        EXPECT_EQ(aboutSection(row.section), row.message);
    }
    EXPECT_THAT(aboutSection(R"("controls": {"colour": {}})"),
                StartsWith("controls.colour: expected one of the controls as the member's name: "
                           "apply_picture_mode, "));
}

TEST_F(ProfileMistakes, NameTheFileThatTheyAreIn) {
    writeFile(file("base"), R"({"model": "B", "controls": {
        "gamma": {"minimum": 0, "maximum": 9, "default": 5},
        "gamma_config": {"minimum": 0, "maximum": 9, "default": 5}}})");
    writeFile(file("child"),
              R"({"extends": "base", "controls": {"gamma_config": {"maximum": 3}}})");
    EXPECT_THAT(messageFor("child"),
                StartsWith(file("base") + ": controls.gamma_config.default: expected"));
    writeFile(file("child"), R"({"extends": "base", "controls": {"gamma": {"default": 10}}})");
    EXPECT_THAT(messageFor("child"),
                StartsWith(file("child") + ": controls.gamma.default: expected"));
}

TEST_F(ProfileMistakes, NameACircleOfExtensions) {
    writeFile(file("a"), R"({"extends": "b"})");
    writeFile(file("b"), R"({"extends": "a"})");
    EXPECT_EQ(messageFor("a"), file("b") + ": extends: expected a profile that does not lead back "
                                           "to this one");
    EXPECT_EQ(about(R"({"extends": 1})"), "extends: expected the name of a profile");
    writeFile(file("a"), R"({"extends": "none"})");
    EXPECT_THAT(messageFor("a"), StartsWith(file("none") + ": cannot be opened"));
}

} // namespace
} // namespace KLX::Host
