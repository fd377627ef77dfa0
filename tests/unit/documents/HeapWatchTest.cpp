#include "HeapWatch.h"

#include <gtest/gtest.h>
#include <json/json.h>
#include <libxml/xmlmemory.h>

#include <memory>
#include <memory_resource>
#include <new>
#include <string>

namespace {

TEST(HeapWatchTest, SeesWhatCxxTakes) {
    const HeapWatch watch(16 * mebibyte);
    std::make_unique<std::string>(mebibyte, 'x');
    EXPECT_GE(watch.peak(), mebibyte);
    EXPECT_LT(watch.peak(), 2 * mebibyte);
    EXPECT_EQ(watch.grown(), 0);
}

TEST(HeapWatchTest, SeesWhatMemoryResourcesTake) {
    const HeapWatch watch(16 * mebibyte);
    {
        std::pmr::monotonic_buffer_resource memory(mebibyte, std::pmr::new_delete_resource());
        EXPECT_NE(memory.allocate(1), nullptr);
        EXPECT_GE(watch.grown(), static_cast<long long>(mebibyte));
    }
    EXPECT_EQ(watch.piecesOfResources(), 1);
    EXPECT_EQ(watch.grown(), 0);
}

TEST(HeapWatchTest, SeesWhatAJsonLibraryOfItsOwnTakes) {
    const HeapWatch watch(16 * mebibyte);
    const Json::Value value(std::string(mebibyte, 'x').c_str());
    EXPECT_GE(watch.peak(), mebibyte);
}

TEST(HeapWatchTest, SeesWhatLibxmlTakes) {
    const HeapWatch watch(16 * mebibyte);
    xmlFree(xmlRealloc(xmlMalloc(mebibyte), 2 * mebibyte));
    EXPECT_GE(watch.peak(), 2 * mebibyte);
    EXPECT_EQ(watch.grown(), 0);
}

TEST(HeapWatchTest, RefusesWhatIsBeyondItsLimitAndTellsIt) {
    const HeapWatch watch(mebibyte);
    EXPECT_THROW(std::make_unique<std::string>(2 * mebibyte, 'x'), std::bad_alloc);
    EXPECT_EQ(xmlMalloc(2 * mebibyte), nullptr);
    EXPECT_GE(watch.peak(), 2 * mebibyte);
}

TEST(HeapWatchTest, TellsWhatIsNotGivenBack) {
    const HeapWatch watch(mebibyte);
    const auto kept = std::make_unique<std::string>(1000, 'x');
    EXPECT_GE(watch.grown(), 1000);
}

} // namespace
