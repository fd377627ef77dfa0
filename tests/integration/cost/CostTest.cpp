#include "DeviceInfoManager.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t allocations = 0;

} // namespace

// The library's own calls come here, too.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* const block = std::malloc(size)) {
        return block;
    }
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace {

template <class Work>
std::size_t allocationsOf(Work work) {
    const std::size_t before = allocations;
    work();
    return allocations - before;
}

/** Initialises the library once, before all tests, and keeps what that took. */
class Initialisation : public ::testing::Environment {
public:
    void SetUp() override {
        const std::size_t before = heldBytes();
        ASSERT_TRUE(CDeviceInfoManager::Initialize());
        held = heldBytes() - before;
    }

    static std::size_t held;

private:
    static std::size_t heldBytes() {
        const auto heap = mallinfo2();
        return heap.uordblks + heap.hblkhd;
    }
};

std::size_t Initialisation::held = 0;

const auto* const initialisation = ::testing::AddGlobalTestEnvironment(new Initialisation);

TEST(CostTest, InitialisationHoldsAQuarterOfAMebibyteAtMost) {
    EXPECT_GT(Initialisation::held, 0U);
    EXPECT_LT(Initialisation::held, 256U * 1024);
}

TEST(CostTest, ReadingTakesNoMemoryButForTheKey) {
    std::string value;
    EXPECT_EQ(allocationsOf([&value] {
                  CDeviceInfoManager::GetDevicePropertyValue("Picture", "Backlight", value);
              }),
              1U);
    EXPECT_EQ(value, "1");
}

TEST(CostTest, ReadingByALongPathTakesMemoryForTheTwoArgumentsAndTheKey) {
    std::string value;
    EXPECT_EQ(allocationsOf([&value] {
                  CDeviceInfoManager::GetDevicePropertyValue(
                      "General & Privacy", "Parental Settings/Adult Content Lock", value);
              }),
              3U);
    EXPECT_EQ(value, "1");
}

TEST(CostTest, WritingTakesMemoryForALongArgumentAndTheKey) {
    EXPECT_EQ(allocationsOf([] {
                  CDeviceInfoManager::SetDevicePropertyValue("Broadcasting", "Apply Channel Lock",
                                                             "1");
              }),
              2U);
}

} // namespace
