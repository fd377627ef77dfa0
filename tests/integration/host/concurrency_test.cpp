#include "HostTest.h"

#include "vconf.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace KLX::Host {
namespace {

constexpr auto sharedText = "db/ontv/menu_entry_support";

/** A text whose every byte tells which writer it is from. */
std::string textOf(int writer, int round) {
    return std::string(static_cast<std::size_t>(1 + round % 300), static_cast<char>('A' + writer));
}

bool isWhole(const char* text) {
    const std::string value = text;
    return value == "Aerial" || value.find_first_not_of(value[0]) == std::string::npos;
}

/** Writes and reads a key of its own and one that everybody writes; false after a wrong answer. */
bool work(int writer, int rounds, const std::string& prefix) {
    const std::string own = prefix + "writer" + std::to_string(writer);
    for (int round = 0; round < rounds; ++round) {
        int value = -1;
        const bool kept = vconf_set_int(own.c_str(), round) == success &&
                          vconf_get_int(own.c_str(), &value) == success && value == round &&
                          vconf_set_str(sharedText, textOf(writer, round).c_str()) == success;
        const std::unique_ptr<char, void (*)(void*)> shared(vconf_get_str(sharedText), std::free);
        if (!kept || !shared || !isWhole(shared.get())) {
            return false;
        }
    }
    return true;
}

class Concurrency : public HostTest {};

TEST_F(Concurrency, OfFourProcessesLosesAndMixesNothing) {
    constexpr int rounds = 150;
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (int i = 0; i < 4; ++i) {
        processes.push_back(
            std::make_unique<ChildProcess>([i] { return work(i, rounds, "db/") ? success : 1; }));
    }
    for (const auto& process : processes) {
        EXPECT_EQ(process->wait(), success);
    }
    for (int i = 0; i < 4; ++i) {
        int value = -1;
        EXPECT_EQ(vconf_get_int(("db/writer" + std::to_string(i)).c_str(), &value), success);
        EXPECT_EQ(value, rounds - 1);
    }
}

TEST_F(Concurrency, OfManyThreadsLosesAndMixesNothing) {
    constexpr int threadCount = 8;
    std::vector<std::thread> threads;
    std::vector<char> good(threadCount, 0);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back(
            [i, &good] { good[static_cast<std::size_t>(i)] = work(i, 60, "memory/") ? 1 : 0; });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(good, std::vector<char>(threadCount, 1));
}

TEST_F(Concurrency, OfFirstUsesOpensOneStore) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 16; ++i) {
        threads.emplace_back([i] {
            const std::string key = "memory/first" + std::to_string(i);
            EXPECT_EQ(vconf_set_int(key.c_str(), i), success);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int i = 0; i < 16; ++i) {
        int value = -1;
        EXPECT_EQ(vconf_get_int(("memory/first" + std::to_string(i)).c_str(), &value), success);
        EXPECT_EQ(value, i);
    }
}

TEST_F(Concurrency, OfReadersAndAGrowingMapNeitherStarvesNorBreaks) {
    ::setenv("KLX_HOST_MAP_SIZE", "131072", 1);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 5000; ++round) {
                int value = -1;
                EXPECT_EQ(vconf_get_int("memory/sysman/hdmi2", &value), success);
            }
        });
    }
    const std::string text(20000, 'x');
    for (int i = 0; i < 100; ++i) {
        const std::string key = "memory/text" + std::to_string(i);
        ASSERT_EQ(vconf_set_str(key.c_str(), text.c_str()), success);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(inOwnProcess([&] {
                  const std::unique_ptr<char, void (*)(void*)> found(vconf_get_str("memory/text99"),
                                                                     std::free);
                  return found && text == found.get() ? 0 : 1;
              }),
              0);
}

} // namespace
} // namespace KLX::Host
