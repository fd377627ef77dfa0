#include "HostTest.h"

#include "SetProfile.h"
#include "profile/HostFacts.h"
#include "profile/ProfileReader.h"

namespace KLX::Host {
namespace {

class SetProfileTest : public HostTest {
protected:
    void write(const std::string& name, const std::string& json) {
        writeFile(m_folder.path(name + ".json"), json);
    }

    SetProfile load(const std::string& name) { return loadProfile(name, m_folder.path()); }
};

TEST_F(SetProfileTest, NeedsNoMoreThanAModel) {
    write("small", R"({"model": "Small"})");
    const SetProfile profile = load("small");
    EXPECT_EQ(profile.model, "Small");
    EXPECT_TRUE(profile.settings.empty());
    EXPECT_FALSE(profile.initialSource);
    EXPECT_FALSE(profile.esn);
}

TEST_F(SetProfileTest, DeclaresSettingsByTypeAndDefault) {
    write("p", R"({"model": "P", "settings": {
        "db/i": {"type": "int", "default": -3},
        "db/b": {"type": "bool", "default": true},
        "memory/s": {"type": "string", "default": ""},
        "db/n": {"type": "int"}}})");
    const SetProfile profile = load("p");
    EXPECT_EQ(profile.settings.at("db/i").defaultValue, Value(-3));
    EXPECT_EQ(profile.settings.at("db/b").defaultValue, Value(true));
    EXPECT_EQ(profile.settings.at("memory/s").defaultValue, Value(std::string()));
    EXPECT_EQ(profile.settings.at("db/n").type, ValueType::Integer);
    EXPECT_FALSE(profile.settings.at("db/n").defaultValue);
}

TEST_F(SetProfileTest, DescribesControlsWithDefaultsOfPictureModes) {
    write("p", R"({"model": "P", "pictureModes": {"0": "A", "1": "B"}, "controls": {
        "backlight": {"minimum": 0, "maximum": 50, "default": 35,
                      "defaultsByPictureMode": {"1": 20}}}})");
    const SetProfile profile = load("p");
    const ControlRange& backlight = profile.controls.at("backlight");
    EXPECT_EQ(backlight.defaultIn(0), 35);
    EXPECT_EQ(backlight.defaultIn(1), 20);
    EXPECT_TRUE(backlight.contains(0));
    EXPECT_TRUE(backlight.contains(50));
    EXPECT_FALSE(backlight.contains(-1));
    EXPECT_FALSE(backlight.contains(51));
}

TEST_F(SetProfileTest, DescribesSources) {
    write("p", R"({"model": "P", "settings": {"memory/port": {"type": "int"}}, "sources": {
        "initial": "HDMI1",
        "inputs": {"TV": {"id": 0}, "HDMI1": {"id": 13, "port": "memory/port"}}}})");
    const SetProfile profile = load("p");
    EXPECT_EQ(profile.initialSource, "HDMI1");
    EXPECT_EQ(profile.sources.at("HDMI1").id, 13);
    EXPECT_EQ(profile.sources.at("HDMI1").portKey, "memory/port");
    EXPECT_EQ(profile.sources.at("TV").portKey, "");
}

TEST_F(SetProfileTest, CarriesWhatTheOtherServicesTell) {
    write("p", R"({"model": "P",
        "sound": {"muted": true, "speaker": {"minimum": 0, "maximum": 5, "default": 2}},
        "switches": {"hdmiCec": true, "wifi": false, "wakeOnMobile": true},
        "settingsItems": {"item": 4},
        "identity": {"esn": "E"},
        "applicationServer": {"versions": {"10": "1.2"}, "hubSite": "H", "usedMemory": "7"},
        "power": {"powerFailCount": 1, "watchdogCount": 2},
        "tuner": {"snrHundredthsOfDecibel": -150}})");
    const SetProfile profile = load("p");
    EXPECT_TRUE(profile.sound.isMuted);
    EXPECT_EQ(profile.sound.speaker.defaultValue, 2);
    EXPECT_EQ(profile.switches.hdmiCec, 1);
    EXPECT_EQ(profile.switches.wifi, 0);
    EXPECT_TRUE(profile.switches.wakeOnMobile);
    EXPECT_EQ(profile.settingsItems.at("item"), 4);
    EXPECT_EQ(profile.esn, "E");
    EXPECT_EQ(profile.applicationServer.versions.at("10"), "1.2");
    EXPECT_EQ(profile.applicationServer.hubSite, "H");
    EXPECT_EQ(profile.applicationServer.usedMemory, "7");
    EXPECT_EQ(profile.power.powerFail, 1);
    EXPECT_EQ(profile.power.watchdog, 2);
    EXPECT_EQ(profile.snrHundredthsOfDecibel, -150);
}

TEST_F(SetProfileTest, TakesOverWhatItExtends) {
    write("base", R"({"model": "Base", "identity": {"esn": "E"},
        "systemInformation": {"8": "old", "90": "EU"},
        "settings": {"db/a": {"type": "int", "default": 1},
                     "db/b": {"type": "int", "default": 1}}})");
    write("child", R"({"extends": "base", "model": "Child", "identity": null,
        "systemInformation": {"8": "new"},
        "settings": {"db/a": {"default": 2}, "db/b": null, "db/c": {"type": "bool"}}})");
    const SetProfile profile = load("child");
    EXPECT_EQ(profile.model, "Child");
    EXPECT_FALSE(profile.esn);
    EXPECT_EQ(profile.systemInformation.at(8), Value(std::string("new")));
    EXPECT_EQ(profile.systemInformation.at(90), Value(std::string("EU")));
    EXPECT_EQ(profile.settings.at("db/a").defaultValue, Value(2));
    EXPECT_EQ(profile.settings.count("db/b"), 0U);
    EXPECT_EQ(profile.settings.count("db/c"), 1U);
}

TEST_F(SetProfileTest, FindsAFileThatItExtendsFromItsOwnFolder) {
    write("base", R"({"model": "Base"})");
    writeFile(m_folder.path("run/child.json"), R"({"extends": "../base.json"})");
    EXPECT_EQ(loadProfile(m_folder.path("run/child.json"), "/nowhere").model, "Base");
}

TEST_F(SetProfileTest, AsksTheMachineWhereItSaysHost) {
    write("p", R"({"model": "P", "systemInformation": {
        "128": "host", "187": {"value": "host", "fallback": "F"}, "90": "EU"}})");
    const ProfileDocument document = readProfileDocument("p", m_folder.path());
    const SetProfile silent = readProfile(document, HostFacts(m_folder.path()));
    EXPECT_EQ(silent.systemInformation.count(128), 0U);
    EXPECT_EQ(silent.systemInformation.at(187), Value(std::string("F")));
    EXPECT_EQ(silent.systemInformation.at(90), Value(std::string("EU")));
    const SetProfile here = readProfile(document, HostFacts());
    EXPECT_EQ(here.systemInformation.count(128), 1U);
}

} // namespace
} // namespace KLX::Host
