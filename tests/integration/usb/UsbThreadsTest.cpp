#include "UsbBus.h"
#include "UsbClient.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <thread>

namespace KLX::Host::Test {
namespace {

/**
 * Shows a folder as /sys to the calling thread and those that it starts, and to nobody else.
 * umockdev's preloaded library cannot serve several threads at once; a mount can.
 */
class ShownAsSys {
public:
    explicit ShownAsSys(const std::string& folder) {
        const bool shown = unshare(CLONE_NEWNS) == 0 &&
                           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                           mount(folder.c_str(), "/sys", nullptr, MS_BIND, nullptr) == 0;
        m_error = shown ? 0 : errno;
    }
    ~ShownAsSys() {
        if (m_error == 0) {
            EXPECT_EQ(umount2("/sys", MNT_DETACH), 0);
        }
    }
    ShownAsSys(const ShownAsSys&) = delete;
    ShownAsSys& operator=(const ShownAsSys&) = delete;

    /** 0 or the system's error number. */
    int error() const { return m_error; }

private:
    int m_error;
};

/** Does the work that often on each of four threads at once. @return how often it was right. */
int inThreads(int rounds, const std::function<bool()>& work) {
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                right += work() ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return right;
}

class UsbThreadsTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(UsbBus::isInPlace()) << "start this program without umockdev-wrapper";
        // libudev takes nothing but a real sysfs for /sys unless it is told to.
        ASSERT_EQ(setenv("SYSTEMD_DEVICE_VERIFY_SYSFS", "0", 1), 0);
        if (sys.error() == EPERM) {
            const char* const ci = std::getenv("CI");
            ASSERT_FALSE(ci != nullptr && std::string(ci) == "true")
                << "this program may not mount";
            GTEST_SKIP() << "this program may not mount; start it through "
                            "\"unshare --map-root-user\" where the machine allows that";
        }
        ASSERT_EQ(sys.error(), 0) << "cannot show a folder as /sys: " << std::strerror(sys.error());
        bus.plug(stick("1-1", "First"));
        bus.plug(stick("1-2", "Second"));
    }

    UsbBus bus;
    const ShownAsSys sys{bus.sysFolder()};
};

} // namespace

TEST_F(UsbThreadsTest, QueriesAtTheSameTimeGetTheSameAnswers) {
    const int right = inThreads(50, [] {
        const bool begun = usb_device_init() == 0;
        const bool same = count() == 2 && products() == Texts{"First", "Second"};
        const bool ended = usb_device_fini() == 0;
        return begun && same && ended;
    });
    EXPECT_EQ(right, 200);
    EXPECT_EQ(usb_device_fini(), numberOf(UsbError::NotInitialized));
}

TEST_F(UsbThreadsTest, OneListWalkedByAllGivesEachDeviceOut) {
    const DeviceList list;
    std::atomic<int> found{0};
    inThreads(1, [&] {
        usb_device_h device = nullptr;
        while (usb_device_list_get_next(list.handle(), &device) == 0) {
            found += usb_device_get_product(device) ? 1 : 0;
        }
        return true;
    });
    EXPECT_EQ(found, 2);
}

TEST_F(UsbThreadsTest, ListFreedByAllIsFreedOnce) {
    usb_device_list_h list = nullptr;
    ASSERT_EQ(usb_device_get_device_list(massStorage, &list), 0);
    EXPECT_EQ(inThreads(1, [&] { return usb_device_free_device_list(list) == 0; }), 1);
}

TEST_F(UsbThreadsTest, DevicesMayComeAndGoMeanwhile) {
    std::atomic<bool> done{false};
    std::thread hand([&] {
        while (!done) {
            bus.plug(stick("1-3", "Guest"));
            bus.unplug("1-3");
        }
    });
    const int right = inThreads(50, [] {
        const int seen = count();
        const Texts listed = products();
        return (seen == 2 || seen == 3) && listed.size() >= 2 && listed[0] == "First" &&
               listed[1] == "Second";
    });
    done = true;
    hand.join();
    EXPECT_EQ(right, 200);
}

} // namespace KLX::Host::Test
