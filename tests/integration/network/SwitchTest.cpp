#include "Confined.h"
#include "NetworkTest.h"

#include "HostErrors.h"
#include "network_control.h"

#include <linux/rfkill.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace klx::network {
namespace {

using KLX::Host::HostError;

Answer wifiSwitch() {
    int isOn = 77;
    const int error = wifi_get_enable_kq(&isOn);
    return error == 0 ? said(isOn) : Answer{error, isOn == 77 ? "" : "the output was changed"};
}

Answer wakeSwitch() {
    bool isOn = false;
    const int error = util_get_wakeOnMobile_mode(&isOn);
    return error == 0 ? said(isOn ? 1 : 0) : Answer{error, ""};
}

/** The switches over an empty settings store and a /dev of the test's own. */
class Switches : public NetworkTest {
protected:
    void SetUp() override {
        NetworkTest::SetUp();
        if (!IsSkipped() && !HasFatalFailure()) {
            scene().cover("/dev");
        }
        std::string folder = testing::TempDir() + "klx-network-XXXXXX";
        ASSERT_NE(::mkdtemp(folder.data()), nullptr);
        m_folder = folder;
        ::setenv("KLX_STATE_DIR", folder.c_str(), 1);
        ::unsetenv("KLX_HOST_RFKILL");
    }

    // The store notices that its file is gone and begins anew where the next test says.
    void TearDown() override {
        std::filesystem::remove_all(m_folder);
        NetworkTest::TearDown();
    }

    /** The radios that the kernel tells of: each its type, and whether it is blocked. */
    void radios(const std::vector<rfkill_event>& events) {
        std::string content;
        for (const rfkill_event& event : events) {
            content.append(reinterpret_cast<const char*>(&event), sizeof event);
        }
        scene().write("/dev/rfkill", content);
        ::setenv("KLX_HOST_RFKILL", "1", 1);
    }

    static rfkill_event radio(unsigned index, rfkill_type type, bool soft, bool hard = false) {
        rfkill_event event{};
        event.idx = index;
        event.type = static_cast<unsigned char>(type);
        event.op = RFKILL_OP_ADD;
        event.soft = soft ? 1 : 0;
        event.hard = hard ? 1 : 0;
        return event;
    }

    /** The event that was written last: it begins the file that stands for the device. */
    static rfkill_event written() {
        rfkill_event event{};
        std::ifstream("/dev/rfkill", std::ios::binary)
            .read(reinterpret_cast<char*>(&event), sizeof event);
        return event;
    }

private:
    std::filesystem::path m_folder;
};

TEST_F(Switches, OfWifiIsOnUntilSomebodySwitchesItOff) {
    EXPECT_EQ(wifiSwitch(), said(1));
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
    EXPECT_EQ(wifiSwitch(), said(0));
    EXPECT_EQ(wifi_set_enable_kq(true), 0);
    EXPECT_EQ(wifiSwitch(), said(1));
}

TEST_F(Switches, OfWakingIsOffUntilSomebodySwitchesItOn) {
    EXPECT_EQ(wakeSwitch(), said(0));
    EXPECT_EQ(util_set_wakeOnMobile_mode(true), 0);
    EXPECT_EQ(wakeSwitch(), said(1));
    EXPECT_EQ(util_set_wakeOnMobile_mode(false), 0);
    EXPECT_EQ(wakeSwitch(), said(0));
}

TEST_F(Switches, AreTwo) {
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
    EXPECT_EQ(util_set_wakeOnMobile_mode(true), 0);
    EXPECT_EQ(wifiSwitch(), said(0));
    EXPECT_EQ(wakeSwitch(), said(1));
}

TEST_F(Switches, NeedSomewhereToPutTheAnswer) {
    EXPECT_EQ(wifi_get_enable_kq(nullptr), static_cast<int>(NetworkError::NullPointer));
    EXPECT_EQ(util_get_wakeOnMobile_mode(nullptr), static_cast<int>(NetworkError::NullPointer));
}

TEST_F(Switches, AreAnsweredForByTheStoreWhereItHasNoFolder) {
    ::setenv("KLX_STATE_DIR", "/proc/nowhere", 1);
    constexpr int refusal = static_cast<int>(HostError::SystemFailure);
    EXPECT_EQ(wifi_set_enable_kq(false), refusal);
    EXPECT_EQ(util_set_wakeOnMobile_mode(true), refusal);
    EXPECT_EQ(wifiSwitch(), (Answer{refusal, ""}));
    EXPECT_EQ(wakeSwitch(), (Answer{refusal, ""}));
}

TEST_F(Switches, LeaveTheRadiosAloneUnlessAskedTo) {
    radios({radio(0, RFKILL_TYPE_WLAN, false)});
    ::setenv("KLX_HOST_RFKILL", "0", 1);
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
    EXPECT_EQ(wifiSwitch(), said(0));
    EXPECT_EQ(written().op, RFKILL_OP_ADD) << "the device was written to";
}

TEST_F(Switches, ReadTheRadios) {
    radios({radio(0, RFKILL_TYPE_BLUETOOTH, false), radio(1, RFKILL_TYPE_WLAN, true)});
    EXPECT_EQ(wifiSwitch(), said(0));
    radios({radio(0, RFKILL_TYPE_BLUETOOTH, true), radio(1, RFKILL_TYPE_WLAN, false)});
    EXPECT_EQ(wifiSwitch(), said(1));
}

TEST_F(Switches, AreOnWhenOneRadioOfSeveralIs) {
    radios({radio(0, RFKILL_TYPE_WLAN, true), radio(1, RFKILL_TYPE_WLAN, false)});
    EXPECT_EQ(wifiSwitch(), said(1));
}

TEST_F(Switches, AreOffWhenTheMachinesOwnSwitchIs) {
    radios({radio(0, RFKILL_TYPE_WLAN, false, true)});
    EXPECT_EQ(wifiSwitch(), said(0));
}

TEST_F(Switches, SwitchEveryWifiRadioOff) {
    radios({radio(3, RFKILL_TYPE_WLAN, false)});
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
    EXPECT_EQ(written().op, RFKILL_OP_CHANGE_ALL);
    EXPECT_EQ(written().type, RFKILL_TYPE_WLAN);
    EXPECT_EQ(written().soft, 1);
}

TEST_F(Switches, SwitchEveryWifiRadioOn) {
    radios({radio(3, RFKILL_TYPE_WLAN, true)});
    EXPECT_EQ(wifi_set_enable_kq(true), 0);
    EXPECT_EQ(written().op, RFKILL_OP_CHANGE_ALL);
    EXPECT_EQ(written().type, RFKILL_TYPE_WLAN);
    EXPECT_EQ(written().soft, 0);
}

TEST_F(Switches, CannotGoOnAgainstTheMachinesOwnSwitch) {
    radios({radio(0, RFKILL_TYPE_WLAN, true, true)});
    EXPECT_EQ(wifi_set_enable_kq(true), static_cast<int>(NetworkError::RadioBlocked));
    EXPECT_EQ(written().op, RFKILL_OP_ADD) << "the device was written to";
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
}

TEST_F(Switches, AreKeptWhereThereIsNoRadio) {
    radios({radio(0, RFKILL_TYPE_BLUETOOTH, false)});
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
    EXPECT_EQ(wifiSwitch(), said(0));
    EXPECT_EQ(written().op, RFKILL_OP_ADD) << "the device was written to";
}

TEST_F(Switches, AreKeptWhereTheKernelKnowsNoRadiosAtAll) {
    ::setenv("KLX_HOST_RFKILL", "1", 1);
    EXPECT_EQ(wifi_set_enable_kq(false), 0);
    EXPECT_EQ(wifiSwitch(), said(0));
}

TEST_F(Switches, FailWithoutTheRightToTheRadios) {
    radios({radio(0, RFKILL_TYPE_WLAN, false)});
    std::filesystem::permissions("/dev/rfkill", std::filesystem::perms::none);
    withoutRightsToFiles([] {
        EXPECT_EQ(wifiSwitch(), failed(NetworkError::RadioDenied));
        EXPECT_EQ(wifi_set_enable_kq(false), static_cast<int>(NetworkError::RadioDenied));
    });
}

TEST_F(Switches, FailWithoutTheRightToSwitchTheRadios) {
    radios({radio(0, RFKILL_TYPE_WLAN, false)});
    std::filesystem::permissions("/dev/rfkill", std::filesystem::perms::owner_read);
    withoutRightsToFiles([] {
        EXPECT_EQ(wifiSwitch(), said(1));
        EXPECT_EQ(wifi_set_enable_kq(false), static_cast<int>(NetworkError::RadioDenied));
    });
}

TEST_F(Switches, FailWhereTheRadiosCannotBeRead) {
    ::setenv("KLX_HOST_RFKILL", "1", 1);
    std::filesystem::create_directory("/dev/rfkill");
    EXPECT_EQ(wifiSwitch(), failed(NetworkError::RadioFailed));
}

} // namespace
} // namespace klx::network
