#include "NetworkTest.h"

#include "DeviceInfoManager.h"

#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

namespace klx::network {
namespace {

#if defined(__has_feature)
#define KLX_HAS_FEATURE(name) __has_feature(name)
#else
#define KLX_HAS_FEATURE(name) 0
#endif

// The sanitizers keep freed memory back, so that the size of the process says nothing.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) ||                               \
    KLX_HAS_FEATURE(address_sanitizer) || KLX_HAS_FEATURE(thread_sanitizer)
constexpr bool sizeIsMeaningful = false;
#else
constexpr bool sizeIsMeaningful = true;
#endif

std::ptrdiff_t openDescriptors() {
    const std::filesystem::directory_iterator begin("/proc/self/fd");
    return std::distance(begin, std::filesystem::directory_iterator());
}

// Counted page by page when it is read; what "statm" tells some kernels bring up to date in
// batches. Pages of files are not counted: a fault brings in more than the one that it is about.
long ownBytes() {
    std::ifstream file("/proc/self/smaps_rollup");
    for (std::string name; file >> name;) {
        long kibibytes = 0;
        if (name == "Anonymous:" && file >> kibibytes) {
            return kibibytes * 1024;
        }
    }
    ADD_FAILURE() << "the kernel tells no size of what is the process's own";
    return 0;
}

/** What a property query does: open, fetch a profile or search for one, ask, close. */
void query() {
    const Connection connection;
    connection_profile_h profile = nullptr;
    if (connection_get_current_profile(connection.handle(), &profile) == 0) {
        EXPECT_EQ(address(profile).error, 0);
    }
    EXPECT_EQ(connection.type().error, 0);
    connection.registered();
}

/** The eight properties of the library that ask the network service, one after the other. */
void queryLibrary() {
    for (const char* const property :
         {"DNS", "DeviceName", "Gateway", "IP", "IPMode", "MAC", "SubnetMask", "Type"}) {
        std::string value;
        EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue("Network", property, value));
        EXPECT_NE(value, "") << property;
    }
}

class Resources : public NetworkTest {
protected:
    /** Asks often; descriptors and memory are afterwards where they were. */
    static void expectNothingLeftBy(void (*ask)(), int turns) {
        constexpr int warmUp = 200;
        constexpr long slack = 128L * 1024;
        for (int i = 0; i < warmUp; ++i) {
            ask();
        }
        const std::ptrdiff_t descriptors = openDescriptors();
        const long own = ownBytes();
        for (int i = 0; i < turns && !HasFailure(); ++i) {
            ask();
        }
        EXPECT_EQ(openDescriptors(), descriptors);
        if (sizeIsMeaningful) {
            EXPECT_LE(ownBytes(), own + slack);
        }
    }
};

TEST_F(Resources, AreWhereTheyWereAfterTenThousandQueries) {
    addWayOut("eth0");
    expectNothingLeftBy(query, 10000);
}

TEST_F(Resources, OfTheLibraryAreWhereTheyWereAfterTenThousandQueries) {
    constexpr int queries = 10000;
    constexpr int properties = 8;
    addWayOut("eth0");
    scene().cover("/etc");
    scene().write("/etc/resolv.conf", "nameserver 192.0.2.53\n");
    expectNothingLeftBy(queryLibrary, queries / properties);
}

TEST_F(Resources, OfOneConnectionDoNotGrowWithItsProfiles) {
    constexpr int queries = 10000;
    constexpr long slack = 128L * 1024;
    addWayOut("eth0");
    const Connection connection;
    connection.registered();
    const long own = ownBytes();
    for (int i = 0; i < queries && !HasFailure(); ++i) {
        connection.current();
    }
    if (sizeIsMeaningful) {
        EXPECT_LE(ownBytes(), own + slack);
    }
}

TEST_F(Resources, AreNotSharedByQueriesOnSeveralThreads) {
    constexpr int threadCount = 8;
    constexpr int queries = 200;
    addWayOut("eth0");
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([] {
            for (int turn = 0; turn < queries; ++turn) {
                query();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST_F(Resources, AreSoundWhileLinksComeAndGo) {
    constexpr int changes = 30;
    addWayOut("eth0");
    std::atomic<bool> isOver{false};
    std::thread asking([&] {
        while (!isOver) {
            query();
        }
    });
    for (int i = 0; i < changes; ++i) {
        scene().ip("link add eth9 type veth peer name far9");
        scene().ip("link set eth9 up");
        scene().ip("addr add 10.0.9.2/24 dev eth9");
        scene().ip("route add default dev eth9 metric 1");
        scene().ip("link del eth9");
    }
    isOver = true;
    asking.join();
    EXPECT_EQ(name(Connection().current()), said("eth0"));
}

TEST_F(Resources, OfAHandleThatAnotherThreadEndsAreSound) {
    constexpr int turns = 50;
    addWayOut("eth0");
    for (int i = 0; i < turns; ++i) {
        connection_h connection = nullptr;
        ASSERT_EQ(connection_create(&connection), 0);
        std::thread asking([&] {
            connection_profile_h profile = nullptr;
            while (connection_get_current_profile(connection, &profile) == 0) {
                const Answer answer = name(profile);
                EXPECT_TRUE(answer == said("eth0") ||
                            answer == failed(NetworkError::UnknownHandle));
            }
        });
        std::this_thread::yield();
        EXPECT_EQ(connection_destroy(connection), 0);
        asking.join();
    }
}

} // namespace
} // namespace klx::network
