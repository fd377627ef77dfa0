#include "AllocationFaults.h"
#include "OpenDescriptors.h"
#include "SweepTest.h"

#include <libxml/xmlerror.h>

#include <cstdlib>

using namespace klx::test;
namespace fake = klx::fake;

namespace {

/** Ten thousand documents take a debug build minutes; all of them with KLX_SWEEP_FULL=1. */
int timesOf(const Operation& operation) {
    if (std::string(operation.name) == "Get") {
        return 100'000;
    }
    return std::getenv("KLX_SWEEP_FULL") != nullptr ? 10'000 : 400;
}

Operation operationNamed(const std::string& name) {
    for (const auto& operations : {operationsOnAProperty(), operationsOnAll()}) {
        for (const Operation& operation : operations) {
            if (name == operation.name) {
                return operation;
            }
        }
    }
    throw std::invalid_argument(name);
}

/** What a long run of one operation leaves behind. */
class ResourceTest : public SweepTest {
protected:
    /** The calls in turn, a number of times in all. @return the blocks of memory they left */
    static std::size_t blocksLeftBy(const std::vector<PreparedCall>& calls, int times) {
        AllocationFaults watch(0);
        for (int i = 0; i < times; ++i) {
            runOnce(calls[static_cast<std::size_t>(i) % calls.size()]);
            if (i % 100 == 0) {
                fake::clearHistory();
            }
        }
        waitForThreadsToEnd();
        watch.disarm();
        xmlResetLastError();
        return watch.blocksLeft();
    }

    static std::vector<PreparedCall> callsOf(const Operation& operation) {
        std::vector<PreparedCall> calls;
        const bool isForAll = std::string(operation.name).find("All") != std::string::npos;
        for (const std::string& path : isForAll ? std::vector<std::string>{""} : allPaths()) {
            calls.push_back(operation.prepare(path));
        }
        return calls;
    }

private:
    static void runOnce(const PreparedCall& call) {
        const PreparedCall once = call;
        Answer answer;
        once(answer);
        EXPECT_TRUE(answer.done);
    }
};

TEST_P(ResourceTest, TakesNoMoreMemoryAndDescriptorsTheLongerItGoesOn) {
    const std::vector<PreparedCall> calls = callsOf(GetParam());
    // What is made once and kept is made in the first round.
    const auto oneRound = static_cast<int>(calls.size());
    blocksLeftBy(calls, oneRound);
    const std::size_t kept = blocksLeftBy(calls, oneRound);
    const std::size_t descriptors = openDescriptors();
    // A thread that has ended may still have its own to give back.
    constexpr std::size_t late = 8;
    EXPECT_LE(blocksLeftBy(calls, timesOf(GetParam())), kept + late);
    EXPECT_EQ(openDescriptors(), descriptors);
    expectHandlesInOrder();
}

INSTANTIATE_TEST_SUITE_P(Each, ResourceTest,
                         ::testing::Values(operationNamed("Get"), operationNamed("DumpAllXml"),
                                           operationNamed("DumpAllJson"),
                                           operationNamed("RestoreAllXml"),
                                           operationNamed("RestoreAllJson")),
                         nameOf);

} // namespace
