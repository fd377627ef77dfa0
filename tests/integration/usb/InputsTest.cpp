#include "UsbBus.h"

#include "DeviceInfoManager.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace KLX::Host::Test {
namespace {

/** The library's list of inputs over the host platform. */
class InputsTest : public testing::Test {
protected:
    // The platform reads its environment once in a process.
    static void SetUpTestSuite() {
        folder() = testing::TempDir() + "klx-inputs-XXXXXX";
        ASSERT_NE(mkdtemp(folder().data()), nullptr);
        setenv("KLX_STATE_DIR", folder().c_str(), 1);
        setenv("XDG_RUNTIME_DIR", folder().c_str(), 1);
        setenv("KLX_PROFILE", "standard", 1);
    }

    static void TearDownTestSuite() { std::filesystem::remove_all(folder()); }

    void SetUp() override {
        ASSERT_TRUE(UsbBus::isInPlace()) << "start this program through umockdev-wrapper";
    }

    static InputDevice input(const std::string& name) {
        std::vector<InputDevice> devices;
        EXPECT_TRUE(CDeviceInfoManager::ListInputDevices(devices));
        for (const InputDevice& each : devices) {
            if (each.name == name) {
                return each;
            }
        }
        ADD_FAILURE() << "no " << name;
        return {};
    }

    /** State, product and manufacturer in one text. */
    static std::string shown(const std::string& name) {
        const InputDevice device = input(name);
        return device.state + "|" + device.product + "|" + device.manufacturer;
    }

    static std::string& folder() {
        static std::string folder;
        return folder;
    }

    UsbBus bus;
};

} // namespace

TEST_F(InputsTest, NothingPluggedInIsNothingConnected) {
    EXPECT_EQ(shown("USB1"), "0||");
    EXPECT_EQ(shown("USB4"), "0||");
    EXPECT_EQ(shown("HDMI1"), "1||");
}

TEST_F(InputsTest, SticksFillTheInputsInTheOrderOfTheirPorts) {
    bus.plug(stick("1-2", "Ultra", "SanDisk"));
    bus.plug(stick("1-1", "DataTraveler 3.0", "Kingston"));
    EXPECT_EQ(shown("USB1"), "1|DataTraveler 3.0|Kingston");
    EXPECT_EQ(shown("USB2"), "1|Ultra|SanDisk");
    EXPECT_EQ(shown("USB3"), "0||");
}

TEST_F(InputsTest, StickWithoutTextsIsConnected) {
    bus.plug({"1-1", {"08"}});
    EXPECT_EQ(shown("USB1"), "1||");
}

TEST_F(InputsTest, CompositeDeviceFillsOneInput) {
    bus.plug({"1-1", {"03", "08", "08"}, "Camera", "Maker"});
    EXPECT_EQ(shown("USB1"), "1|Camera|Maker");
    EXPECT_EQ(shown("USB2"), "0||");
}

TEST_F(InputsTest, UnpluggedStickMakesRoomForTheNext) {
    bus.plug(stick("1-1", "First"));
    bus.plug(stick("1-2", "Second"));
    EXPECT_EQ(input("USB1").product, "First");
    bus.unplug("1-1");
    EXPECT_EQ(input("USB1").product, "Second");
    EXPECT_EQ(input("USB2").state, "0");
}

} // namespace KLX::Host::Test
