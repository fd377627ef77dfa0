#include "Stride.h"
#include "SweepTest.h"

using namespace klx::test;

namespace {

/** Nobody looks at what the log answers, so nothing may depend on it. */
class LogFaultTest : public SweepTest {
protected:
    /** Refuses each line that the operation logs, or some. */
    void sweep(const std::string& path, Stride stride = {}) {
        const std::string before = valueOf(path);
        const PreparedCall call = GetParam().prepare(path);
        const Observed good = observe(call);
        const std::string after = valueOf(path);
        const int lines = static_cast<int>(good.lines.size());
        for (int nth = stride.first; nth <= lines; nth += stride.step) {
            SCOPED_TRACE("line " + std::to_string(nth) + " of " + path);
            change(path, before);
            scene.scene().failNth("__dlog_print", nth, -1);
            const Observed faulty = observe(call);
            EXPECT_EQ(faulty.answer.done, good.answer.done);
            EXPECT_EQ(faulty.answer.text, good.answer.text);
            EXPECT_EQ(faulty.calls, good.calls);
            EXPECT_EQ(faulty.lines.size(), good.lines.size());
            EXPECT_EQ(valueOf(path), after);
        }
        change(path, before);
    }
};

TEST_P(LogFaultTest, ChangesNothingForAProperty) {
    for (const std::string& path : allPaths()) {
        sweep(path);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, LogFaultTest, ::testing::ValuesIn(operationsOnAProperty()), nameOf);

class OtherLogFaultTest : public LogFaultTest {};

TEST_P(OtherLogFaultTest, ChangesNothing) {
    sweep("/Picture/Backlight");
}

INSTANTIATE_TEST_SUITE_P(Each, OtherLogFaultTest, ::testing::ValuesIn(otherOperations()), nameOf);

class DocumentLogFaultTest : public LogFaultTest {};

TEST_P(DocumentLogFaultTest, ChangesNothing) {
    sweep("/Picture/Backlight", strideForLongSweeps());
}

INSTANTIATE_TEST_SUITE_P(Each, DocumentLogFaultTest, ::testing::ValuesIn(operationsOnAll()),
                         nameOf);

} // namespace
