#include "AllocationFaults.h"
#include "Stride.h"
#include "SweepTest.h"

#include <libxml/xmlerror.h>

#include <algorithm>
#include <set>

using namespace klx::test;
namespace fake = klx::fake;
using ::testing::AnyOf;

namespace {

using Lines = std::multiset<std::string>;

/** What a call did while one allocation failed. */
struct Outcome {
    bool metFault = false;
    bool threw = false;
    Answer answer;
    Lines failures;
    std::size_t blocksLeft = 0;
};

/** The lines that tell of a failure. */
Lines failuresInLog() {
    Lines failures;
    for (const fake::LogLine& line : fake::logs()) {
        if (line.priority >= 5) {
            failures.insert(line.function + ": " + line.message);
        }
    }
    return failures;
}

bool answers(const PreparedCall& call, Answer& answer) {
    try {
        call(answer);
        return true;
    } catch (...) {
        return false;
    }
}

Outcome runWithFault(const PreparedCall& call, int nth) {
    const PreparedCall once = call;
    Outcome outcome;
    fake::clearHistory();
    AllocationFaults faults(nth);
    {
        Answer answer;
        outcome.threw = !answers(once, answer);
        waitForThreadsToEnd();
        faults.disarm();
        outcome.answer = answer;
    }
    // It keeps its last message until the next one.
    xmlResetLastError();
    outcome.metFault = faults.metFault();
    outcome.failures = failuresInLog();
    outcome.blocksLeft = faults.blocksLeft();
    return outcome;
}

/** Whether a failure was told that is none of the undisturbed call's. */
bool tellsMore(const Outcome& outcome, const Outcome& good) {
    return !std::includes(good.failures.begin(), good.failures.end(), outcome.failures.begin(),
                          outcome.failures.end());
}

/** Texts of properties may be missing, but neither other texts nor other properties be there. */
void expectGoodOrMissing(const std::string& text, const std::string& good) {
    if (text == good || text.empty()) {
        return;
    }
    const Entries entries = entriesOf(text);
    const Entries goodEntries = entriesOf(good);
    ASSERT_EQ(entries.size(), goodEntries.size());
    for (const auto& [path, entry] : entries) {
        const Entry& goodEntry = goodEntries.at(path);
        EXPECT_THAT(entry.defaultText, AnyOf(goodEntry.defaultText, ""));
        EXPECT_THAT(entry.value, AnyOf(goodEntry.value, ""));
    }
}

class AllocationFaultTest : public SweepTest {
protected:
    /** Fails each of the allocations that the operation makes, or some. @return how many */
    int sweep(const std::string& path, Stride stride = {}) {
        const std::string before = valueOf(path);
        const PreparedCall call = GetParam().prepare(path);
        // What is made once and kept is made in the first of two runs.
        runWithFault(call, 0);
        change(path, before);
        const Outcome good = runWithFault(call, 0);
        EXPECT_LE(good.blocksLeft, blocksKept(path)) << path;
        const std::string wanted = valueOf(path);
        bool metFault = true;
        int failed = 0;
        int leaks = 0;
        for (int nth = stride.first; metFault; nth += stride.step) {
            SCOPED_TRACE("allocation " + std::to_string(nth) + " for " + path);
            change(path, before);
            const Outcome outcome = runWithFault(call, nth);
            const std::string now = valueOf(path);
            EXPECT_THAT(now, AnyOf(before, wanted));
            expectAnswer(outcome, good, now == wanted);
            leaks += leavesBlocks(call, nth, outcome, good) ? 1 : 0;
            expectHandlesInOrder();
            metFault = outcome.metFault;
            failed += metFault ? 1 : 0;
        }
        EXPECT_LE(leaks, leaksOfLibxml());
        change(path, before);
        return failed;
    }

private:
    static void expectAnswer(const Outcome& outcome, const Outcome& good, bool valueIsRight) {
        EXPECT_FALSE(outcome.threw);
        expectGoodOrMissing(outcome.answer.text, good.answer.text);
        const bool isRight = outcome.answer.done == good.answer.done &&
                             outcome.answer.text == good.answer.text && valueIsRight;
        EXPECT_TRUE(isRight || tellsMore(outcome, good)) << outcome.answer.text;
    }

    /** The last answer about used memory is kept until the next question. */
    static std::size_t blocksKept(const std::string& path) {
        const bool asksForIt = std::string(GetParam().name).find("All") != std::string::npos ||
                               std::string(GetParam().name) == "DumpEveryCategory" ||
                               path == "/SystemInformation/LumoraWidgetAppUsage";
        return asksForIt ? 4 : 0;
    }

    /** Whether both of two runs leave more than the undisturbed one. */
    static bool leavesBlocks(const PreparedCall& call, int nth, const Outcome& outcome,
                             const Outcome& good) {
        return outcome.blocksLeft > good.blocksLeft &&
               runWithFault(call, nth).blocksLeft > good.blocksLeft;
    }

    /** Its parser forgets an input buffer for which it finds no room to copy the document into. */
    static int leaksOfLibxml() {
        const std::string operation = GetParam().name;
        return operation.find("Restore") == 0 && operation.find("Xml") != std::string::npos ? 1 : 0;
    }
};

TEST_P(AllocationFaultTest, CostsAPropertyNoMoreThanItsAnswer) {
    const std::string name = GetParam().name;
    const bool hasDocument = name != "Get" && name != "Set";
    int failed = 0;
    for (const std::string& path : allPaths()) {
        const int failedHere = sweep(path);
        EXPECT_TRUE(failedHere > 0 || !hasDocument) << path;
        failed += failedHere;
    }
    EXPECT_GT(failed, 0);
}

INSTANTIATE_TEST_SUITE_P(Each, AllocationFaultTest, ::testing::ValuesIn(operationsOnAProperty()),
                         nameOf);

class OtherAllocationFaultTest : public AllocationFaultTest {};

TEST_P(OtherAllocationFaultTest, CostsNoMoreThanTheAnswer) {
    sweep("/Picture/Backlight");
}

INSTANTIATE_TEST_SUITE_P(Each, OtherAllocationFaultTest, ::testing::ValuesIn(otherOperations()),
                         nameOf);

class DocumentAllocationFaultTest : public AllocationFaultTest {};

TEST_P(DocumentAllocationFaultTest, CostsNoMoreThanTheAnswer) {
    EXPECT_GT(sweep("/Picture/Backlight", strideForLongSweeps()), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, DocumentAllocationFaultTest, ::testing::ValuesIn(operationsOnAll()),
                         nameOf);

} // namespace
