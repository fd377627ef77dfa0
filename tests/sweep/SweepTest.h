#pragma once

#include "Documents.h"
#include "KnowingScene.h"
#include "LogMatchers.h"
#include "Operations.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace klx::test {

/** What a call did, as far as anybody can see it. */
struct Observed {
    Answer answer;
    std::vector<std::string> calls;
    std::vector<fake::LogLine> lines;

    /** How many lines tell of a failure. */
    std::size_t failures() const;
};

/** Makes a call and looks at what it did; the history begins with it. */
Observed observe(const PreparedCall& call);

/** A sweep over a catalogue that knows every answer, on an instance that is ready. */
class SweepTest : public ::testing::TestWithParam<Operation> {
protected:
    SweepTest();

    /** Every handle is closed that the library does not keep on purpose, and none is misused. */
    static void expectHandlesInOrder();

    KnowingScene scene;
};

/** Waits until a thread that an operation has started and left to itself is gone. */
void waitForThreadsToEnd();

std::string nameOf(const ::testing::TestParamInfo<Operation>& info);

} // namespace klx::test
