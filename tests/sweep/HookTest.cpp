#include "AllocationFaults.h"

#include <gtest/gtest.h>

#include <libxml/xmlmemory.h>

#include <memory_resource>
#include <new>

using namespace klx::test;

namespace {

constexpr std::size_t blockSize = 64;

/** Called by name, which no compiler leaves out. */
void* takeBlock() {
    return ::operator new(blockSize, std::nothrow);
}

void giveBlockBack(void* block) {
    ::operator delete(block, std::nothrow);
}

// Without the hooks every sweep over allocations passes and has tested nothing.

TEST(HookTest, TheAllocationThatIsNamedFailsAndNoOther) {
    AllocationFaults faults(2);
    void* const first = takeBlock();
    EXPECT_FALSE(faults.metFault());
    void* const second = takeBlock();
    void* const third = takeBlock();
    faults.disarm();
    EXPECT_TRUE(faults.metFault());
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    giveBlockBack(first);
    giveBlockBack(third);
}

TEST(HookTest, AllocationsOfLibxmlFailToo) {
    AllocationFaults faults(1);
    void* const block = xmlMalloc(blockSize);
    faults.disarm();
    EXPECT_TRUE(faults.metFault());
    EXPECT_EQ(block, nullptr);
}

TEST(HookTest, AllocationsOfMemoryResourcesFailToo) {
    AllocationFaults faults(1);
    bool failed = false;
    try {
        void* const block = std::pmr::new_delete_resource()->allocate(blockSize);
        std::pmr::new_delete_resource()->deallocate(block, blockSize);
    } catch (const std::bad_alloc&) {
        failed = true;
    }
    faults.disarm();
    EXPECT_TRUE(faults.metFault());
    EXPECT_TRUE(failed);
}

TEST(HookTest, BlocksThatAreKeptAreCountedUntilTheyAreGivenBack) {
    AllocationFaults watch(0);
    void* const kept = takeBlock();
    void* const ofLibxml = xmlMalloc(blockSize);
    void* const ofResource = std::pmr::new_delete_resource()->allocate(blockSize);
    giveBlockBack(takeBlock());
    watch.disarm();
    EXPECT_FALSE(watch.metFault());
    EXPECT_EQ(watch.blocksLeft(), 3u);
    giveBlockBack(kept);
    xmlFree(ofLibxml);
    std::pmr::new_delete_resource()->deallocate(ofResource, blockSize);
    EXPECT_EQ(watch.blocksLeft(), 0u);
}

} // namespace
