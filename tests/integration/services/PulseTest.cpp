#include "PulseServer.h"

#include "sound_manager.h"

namespace KLX::Host {
namespace {

class Pulse : public HostTest {
protected:
    Pulse() : m_server(m_folder.path("pulse")) {
        setenv("KLX_HOST_SOUND", "pulse", 1);
        setenv("PULSE_SERVER", m_server.address().c_str(), 1);
        setenv("HOME", m_folder.path("pulse").c_str(), 1);
    }

    PulseServer m_server;
};

TEST_F(Pulse, MutesTheDefaultSink) {
    ASSERT_FALSE(m_server.isDefaultSinkMuted());
    EXPECT_EQ(sound_manager_set_master_mute(true), success);
    EXPECT_TRUE(m_server.isDefaultSinkMuted());
    bool muted = false;
    EXPECT_EQ(sound_manager_get_master_mute(&muted), success);
    EXPECT_TRUE(muted);
}

TEST_F(Pulse, LetsTheDefaultSinkSoundAgain) {
    EXPECT_EQ(sound_manager_set_master_mute(true), success);
    EXPECT_EQ(sound_manager_set_master_mute(false), success);
    EXPECT_FALSE(m_server.isDefaultSinkMuted());
}

TEST_F(Pulse, LeavesTheStoreAlone) {
    EXPECT_EQ(sound_manager_set_master_mute(true), success);
    unsetenv("KLX_HOST_SOUND");
    bool muted = true;
    EXPECT_EQ(sound_manager_get_master_mute(&muted), success);
    EXPECT_FALSE(muted);
}

TEST_F(Pulse, AnswersWithAnErrorNumberWhenTheServerIsGone) {
    m_server.end();
    bool muted = false;
    EXPECT_EQ(sound_manager_get_master_mute(&muted), numberOf(HostError::SystemFailure));
    EXPECT_EQ(sound_manager_set_master_mute(true), numberOf(HostError::SystemFailure));
}

} // namespace
} // namespace KLX::Host
