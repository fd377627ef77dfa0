#include "AllocationFaults.h"

#include <gtest/gtest.h>

#include <libxml/xmlmemory.h>

#include <new>

using namespace klx::test;

namespace {

constexpr std::size_t size = 64;

/** Called by name, which no compiler leaves out. */
void* take() {
    return ::operator new(size, std::nothrow);
}

void giveBack(void* block) {
    ::operator delete(block, std::nothrow);
}

// Without the hooks every sweep over allocations passes and has tested nothing.

TEST(HookTest, TheAllocationThatIsNamedFailsAndNoOther) {
    AllocationFaults faults(2);
    void* const first = take();
    EXPECT_FALSE(faults.metFault());
    void* const second = take();
    void* const third = take();
    faults.disarm();
    EXPECT_TRUE(faults.metFault());
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    giveBack(first);
    giveBack(third);
}

TEST(HookTest, AllocationsOfLibxmlFailToo) {
    AllocationFaults faults(1);
    void* const block = xmlMalloc(size);
    faults.disarm();
    EXPECT_TRUE(faults.metFault());
    EXPECT_EQ(block, nullptr);
}

TEST(HookTest, BlocksThatAreKeptAreCountedUntilTheyAreGivenBack) {
    AllocationFaults watch(0);
    void* const kept = take();
    void* const ofLibxml = xmlMalloc(size);
    giveBack(take());
    watch.disarm();
    EXPECT_FALSE(watch.metFault());
    EXPECT_EQ(watch.blocksLeft(), 2u);
    giveBack(kept);
    xmlFree(ofLibxml);
    EXPECT_EQ(watch.blocksLeft(), 0u);
}

} // namespace
