#include "UsbBus.h"
#include "UsbClient.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <cstring>
#include <functional>

namespace KLX::Host::Test {
namespace {

/** Called before a text of a device that was found is read; has the text's name. */
std::function<void(const char*)> beforeText;

class UsbMeanwhileTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        ASSERT_TRUE(UsbBus::isInPlace()) << "start this program through umockdev-wrapper";
    }

    void TearDown() override { beforeText = nullptr; }

    UsbBus bus;
};

} // namespace

TEST_P(UsbMeanwhileTest, DeviceThatIsUnpluggedBeforeItsTextIsReadIsNotListed) {
    bus.plug(stick("1-1", "Gone"));
    bus.plug(stick("1-2", "There"));
    bus.plug({"1-3", {"08"}});
    int unplugged = 0;
    beforeText = [&](const char* text) {
        if (unplugged == 0 && std::strcmp(text, GetParam()) == 0) {
            ++unplugged;
            bus.unplug("1-1");
        }
    };
    EXPECT_EQ(products(), (Texts{"There", "(none)"}));
    EXPECT_EQ(unplugged, 1);
}

INSTANTIATE_TEST_SUITE_P(Texts, UsbMeanwhileTest, testing::Values("product", "manufacturer"),
                         [](const auto& text) { return std::string(text.param); });

} // namespace KLX::Host::Test

struct udev_device;

// A program's own functions go before those of the libraries, here libudev's.
extern "C" __attribute__((visibility("default"))) const char*
udev_device_get_sysattr_value(udev_device* device, const char* name) {
    if (KLX::Host::Test::beforeText) {
        KLX::Host::Test::beforeText(name);
    }
    using Read = const char* (*)(udev_device*, const char*);
    static const auto real =
        reinterpret_cast<Read>(dlsym(RTLD_NEXT, "udev_device_get_sysattr_value"));
    return real(device, name);
}
