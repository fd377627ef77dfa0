#include "ManagerTest.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

using namespace klx::test;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;

namespace {

/** Runs the works on a thread each, which set off at once. @return what each of them returned */
template <class Result>
std::vector<Result> atOnce(const std::vector<std::function<Result()>>& works) {
    std::atomic<std::size_t> waiting{works.size()};
    std::vector<Result> results(works.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < works.size(); ++i) {
        threads.emplace_back([&, i] {
            for (--waiting; waiting > 0;) {
                std::this_thread::yield();
            }
            results[i] = works[i]();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return results;
}

int initialise() {
    return CDeviceInfoManager::Initialize();
}

int read() {
    std::string value;
    return CDeviceInfoManager::GetDevicePropertyValue("General", "Eco Solution/Auto Power Off",
                                                      value);
}

int write() {
    return CDeviceInfoManager::SetDevicePropertyValue("General", "Eco Solution/Auto Power Off",
                                                      "1");
}

int dump() {
    std::string document;
    return CDeviceInfoManager::GetDeviceInfo({{"*", {}}}, document, "",
                                             CDeviceInfoManager::DATA_FORMAT_XML);
}

class ManagerThreadsTest : public ManagerTest {
protected:
    static std::size_t linesSaying(const std::string& message) {
        const std::vector<std::string> lines = fake::messages(4);
        return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), message));
    }

    static bool waitForLine(const fake::LineMatcher& line) {
        for (int i = 0; i < 5000; ++i) {
            if (::testing::Matches(Contains(line))(fake::logs())) {
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    }
};

TEST_F(ManagerThreadsTest, FirstCallsAtOnceCreateOneInstance) {
    for (int round = 0; round < 25; ++round) {
        const auto results =
            atOnce<int>({initialise, read, write, dump, initialise, read, write, dump});
        EXPECT_THAT(results, Each(1));
        EXPECT_EQ(linesSaying("initializing deviceMap"), 1u);
        seam->forget();
        fake::clearHistory();
    }
}

TEST_F(ManagerThreadsTest, CallDuringTheCreationWaitsForIt) {
    std::thread second;
    scene.onCall("__dlog_print", [&second] {
        if (fake::logs().back().message == "initializing deviceMap") {
            second = std::thread(read);
            EXPECT_TRUE(
                waitForLine(managerLine(4, "GetDevicePropertyValue", "Not yet initialized")));
        }
    });
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
    second.join();
    EXPECT_EQ(linesSaying("initializing deviceMap"), 1u);
    EXPECT_THAT(fake::logs(), Contains(managerLine(4, "Initialize", "Already initialized")));
}

TEST_F(ManagerThreadsTest, QueriesAtOnceGetTheirOwnDocuments) {
    use({{"/A/x", record(answering("of A"))}, {"/B/x", record(answering("of B"))}});
    const auto documentOf = [](const std::string& category) {
        return [category] {
            return documentFor({{category, {"*"}}});
        };
    };
    const std::string ofA = documentOf("A")();
    const std::string ofB = documentOf("B")();
    for (int round = 0; round < 25; ++round) {
        EXPECT_THAT(atOnce<std::string>({documentOf("A"), documentOf("B"), documentOf("A")}),
                    ElementsAre(ofA, ofB, ofA));
    }
}

TEST_F(ManagerThreadsTest, FailedCreationLetsAWaitingCallTry) {
    std::thread second;
    std::atomic<bool> first{true};
    scene.onCall("__dlog_print", [&second, &first] {
        if (fake::logs().back().message == "initializing deviceMap" && first.exchange(false)) {
            second = std::thread(read);
            EXPECT_TRUE(
                waitForLine(managerLine(4, "GetDevicePropertyValue", "Not yet initialized")));
            throw 5;
        }
    });
    EXPECT_FALSE(CDeviceInfoManager::Initialize());
    second.join();
    EXPECT_NE(seam->instance(), nullptr);
    EXPECT_EQ(linesSaying("initializing deviceMap"), 2u);
}

} // namespace
