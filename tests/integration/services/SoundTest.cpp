#include "HostTest.h"

#include "sound_manager.h"

namespace KLX::Host {
namespace {

class Sound : public HostTest {
protected:
    Sound() { unsetenv("KLX_HOST_SOUND"); }
};

TEST_F(Sound, KeepsTheMuteInTheStore) {
    bool muted = true;
    EXPECT_EQ(sound_manager_get_master_mute(&muted), success);
    EXPECT_FALSE(muted);
    EXPECT_EQ(inOwnProcess([] { return sound_manager_set_master_mute(true); }), success);
    EXPECT_EQ(sound_manager_get_master_mute(&muted), success);
    EXPECT_TRUE(muted);
}

TEST_F(Sound, KeepsTheSpeakerSelection) {
    int selection = -1;
    EXPECT_EQ(sound_manager_set_speaker_selection(3), success);
    EXPECT_EQ(sound_manager_get_speaker_selection(&selection), success);
    EXPECT_EQ(selection, 3);
}

TEST_F(Sound, RefusesASpeakerThatTheSetLacks) {
    int selection = -1;
    EXPECT_EQ(sound_manager_set_speaker_selection(99), numberOf(HostError::OutOfRange));
    EXPECT_EQ(sound_manager_get_speaker_selection(&selection), success);
    EXPECT_EQ(selection, 0);
}

TEST_F(Sound, RefusesNullPointers) {
    EXPECT_EQ(sound_manager_get_master_mute(nullptr), numberOf(HostError::NullPointer));
    EXPECT_EQ(sound_manager_get_speaker_selection(nullptr), numberOf(HostError::NullPointer));
}

TEST_F(Sound, RefusesAnUnknownBackend) {
    ASSERT_EQ(setenv("KLX_HOST_SOUND", "trumpet", 1), 0);
    bool muted = false;
    EXPECT_EQ(sound_manager_get_master_mute(&muted), numberOf(HostError::UnknownKey));
    EXPECT_EQ(sound_manager_set_master_mute(true), numberOf(HostError::UnknownKey));
}

TEST_F(Sound, WarnsOnceOfAnUnknownBackend) {
    ASSERT_EQ(setenv("KLX_HOST_SOUND", "trumpet", 1), 0);
    bool muted = false;
    const std::string log = standardErrorOf([&] {
        sound_manager_get_master_mute(&muted);
        sound_manager_set_master_mute(true);
    });
    EXPECT_EQ(log, "warning KLX_HOST: KLX_HOST_SOUND is \"trumpet\", but must be store or pulse; "
                   "muting fails\n");
}

} // namespace
} // namespace KLX::Host
