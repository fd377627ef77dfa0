#include "DeviceInfoAV.h"
#include "PictureTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** A failure that the sound and lighting members themselves log. */
fake::LineMatcher soundLine(const std::string& function, const std::string& message) {
    return fake::LineIn("DeviceInfoAV.cpp", 6, function, message);
}

using MuteTest = PictureTest;

TEST_F(MuteTest, ReadsTheMasterMute) {
    scene.muted(true);
    EXPECT_EQ(DeviceInfoAV::getSoundMute(currentValue, "ignored"), "1");
    scene.muted(false);
    EXPECT_EQ(DeviceInfoAV::getSoundMute(currentValue, ""), "0");
    EXPECT_THAT(fake::history(),
                ElementsAre("sound_manager_get_master_mute()", "sound_manager_get_master_mute()"));
}

TEST_F(MuteTest, FailedReadGivesNothing) {
    scene.muted(true).fail("sound_manager_get_master_mute", 17);
    EXPECT_EQ(DeviceInfoAV::getSoundMute(currentValue, ""), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(soundLine("getSoundMute", "Operation failed, error: 17")));
}

TEST_F(MuteTest, DefaultIsAudibleWithoutACall) {
    scene.muted(true);
    EXPECT_EQ(DeviceInfoAV::getSoundMute(defaultValue, ""), "0");
    EXPECT_EQ(DeviceInfoAV::getSoundMute(static_cast<eMenuValueType>(2), ""), "0");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(MuteTest, MutesAndUnmutes) {
    DeviceInfoAV::setSoundMute("1");
    DeviceInfoAV::setSoundMute("0");
    EXPECT_THAT(fake::history(), ElementsAre("sound_manager_set_master_mute(true)",
                                             "sound_manager_set_master_mute(false)"));
}

TEST_F(MuteTest, AnyOtherTextIsAWrongArgument) {
    for (const char* text : {"true", "", "2", "01", " 1", "1 ", "-1"}) {
        fake::clearHistory();
        DeviceInfoAV::setSoundMute(text);
        EXPECT_THAT(fake::calls(), IsEmpty()) << text;
        EXPECT_THAT(fake::logs(), ElementsAre(soundLine("setSoundMute", "[ERROR] Wrong argument")));
    }
}

TEST_F(MuteTest, FailedWriteIsLogged) {
    scene.fail("sound_manager_set_master_mute", 17);
    DeviceInfoAV::setSoundMute("1");
    EXPECT_THAT(fake::logs(),
                ElementsAre(soundLine("setSoundMute", "Operation failed, error: 17")));
}

using SoundOutputTest = PictureTest;

TEST_F(SoundOutputTest, ReadsTheSpeakerSelection) {
    scene.speaker(4);
    EXPECT_EQ(DeviceInfoAV::getTVSoundOutput(currentValue, "ignored"), "4");
    EXPECT_THAT(fake::history(), ElementsAre("sound_manager_get_speaker_selection()"));
}

TEST_F(SoundOutputTest, FailedReadIsLoggedAndGivesZero) {
    scene.speaker(4).fail("sound_manager_get_speaker_selection", 17);
    EXPECT_EQ(DeviceInfoAV::getTVSoundOutput(currentValue, ""), "0");
    EXPECT_THAT(fake::logs(), ElementsAre(soundLine("getTVSoundOutput", "Operation failed.")));
}

TEST_F(SoundOutputTest, FailedReadGivesWhatItLeft) {
    scene.speaker(4).answer("sound_manager_get_speaker_selection", 17);
    EXPECT_EQ(DeviceInfoAV::getTVSoundOutput(currentValue, ""), "4");
}

TEST_F(SoundOutputTest, DefaultIsZeroWithoutACall) {
    scene.speaker(4);
    EXPECT_EQ(DeviceInfoAV::getTVSoundOutput(defaultValue, ""), "0");
    EXPECT_EQ(DeviceInfoAV::getTVSoundOutput(static_cast<eMenuValueType>(-1), ""), "0");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(SoundOutputTest, WritesANumber) {
    DeviceInfoAV::setTVSoundOutput("4");
    DeviceInfoAV::setTVSoundOutput("-1 or so");
    EXPECT_THAT(fake::history(), ElementsAre("sound_manager_set_speaker_selection(4)",
                                             "sound_manager_set_speaker_selection(-1)"));
}

TEST_F(SoundOutputTest, FailedWriteIsLogged) {
    scene.fail("sound_manager_set_speaker_selection", 17);
    DeviceInfoAV::setTVSoundOutput("4");
    EXPECT_THAT(fake::logs(), ElementsAre(soundLine("setTVSoundOutput", "Operation failed.")));
}

TEST_F(SoundOutputTest, TextThatIsNoNumberIsLoggedWithTheText) {
    DeviceInfoAV::setTVSoundOutput("left 50% off");
    DeviceInfoAV::setTVSoundOutput("4294967295");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(
        fake::logs(),
        ElementsAre(soundLine("setTVSoundOutput", "Conversion failed. Input string: left 50% off"),
                    soundLine("setTVSoundOutput", "Conversion failed. Input string: 4294967295")));
}

using AudioFormatTest = PictureTest;

TEST_F(AudioFormatTest, ReadsTheFormat) {
    scene.pelm("audio_format", 2);
    EXPECT_EQ(DeviceInfoAV::getSoundDigitalAudioOutAudioFormat(currentValue, "ignored"), "2");
    EXPECT_THAT(fake::history(), ElementsAre("pelm_get_audio_format()"));
}

TEST_F(AudioFormatTest, FailedReadGivesNothing) {
    scene.pelm("audio_format", 2).fail("pelm_get_audio_format", 17);
    EXPECT_EQ(DeviceInfoAV::getSoundDigitalAudioOutAudioFormat(currentValue, ""), "");
    EXPECT_THAT(fake::logs(), ElementsAre(soundLine("getSoundDigitalAudioOutAudioFormat",
                                                    "Operation failed, error: 17")));
}

TEST_F(AudioFormatTest, ThereIsNoDefault) {
    scene.pelm("audio_format", 2);
    EXPECT_EQ(DeviceInfoAV::getSoundDigitalAudioOutAudioFormat(defaultValue, ""), "");
    EXPECT_EQ(DeviceInfoAV::getSoundDigitalAudioOutAudioFormat(static_cast<eMenuValueType>(2), ""),
              "");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(AudioFormatTest, WritesANumber) {
    DeviceInfoAV::setSoundDigitalAudioOutAudioFormat("2");
    EXPECT_THAT(fake::history(), ElementsAre("pelm_set_audio_format(2)"));
}

TEST_F(AudioFormatTest, FailedWriteIsLogged) {
    scene.fail("pelm_set_audio_format", 17);
    DeviceInfoAV::setSoundDigitalAudioOutAudioFormat("2");
    EXPECT_THAT(fake::logs(), ElementsAre(soundLine("setSoundDigitalAudioOutAudioFormat",
                                                    "Operation failed, error: 17")));
}

TEST_F(AudioFormatTest, TextThatIsNoNumberIsNotWritten) {
    DeviceInfoAV::setSoundDigitalAudioOutAudioFormat("PCM");
    DeviceInfoAV::setSoundDigitalAudioOutAudioFormat("2147483648");
    const auto failure = soundLine("setSoundDigitalAudioOutAudioFormat", "[ERROR] stoi");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::logs(), ElementsAre(failure, failure));
}

using MotionLightingTest = PictureTest;

TEST_F(MotionLightingTest, ReadsTheSetting) {
    scene.pelm("motion_lighting", 1);
    EXPECT_EQ(DeviceInfoAV::getPictureMotionLightning("ignored"), "1");
    EXPECT_THAT(fake::history(), ElementsAre("pelm_get_motion_lighting(0)"));
}

TEST_F(MotionLightingTest, FailedReadGivesZero) {
    scene.pelm("motion_lighting", 1).answer("pelm_get_motion_lighting", 17);
    EXPECT_EQ(DeviceInfoAV::getPictureMotionLightning(""), "0");
    EXPECT_THAT(fake::logs(),
                ElementsAre(soundLine("getPictureMotionLightning", "Operation failed.")));
}

TEST_F(MotionLightingTest, WritesANumber) {
    DeviceInfoAV::setPictureMotionLightning("1");
    EXPECT_THAT(fake::history(), ElementsAre("pelm_set_motion_lighting(0, 1)"));
}

TEST_F(MotionLightingTest, FailedWriteIsLogged) {
    scene.fail("pelm_set_motion_lighting", 17);
    DeviceInfoAV::setPictureMotionLightning("1");
    EXPECT_THAT(fake::logs(),
                ElementsAre(soundLine("setPictureMotionLightning", "Operation failed.")));
}

TEST_F(MotionLightingTest, TextThatIsNoNumberIsLoggedWithTheText) {
    DeviceInfoAV::setPictureMotionLightning("on");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::logs(), ElementsAre(soundLine("setPictureMotionLightning",
                                                    "Conversion failed. Input string: on")));
}

} // namespace
