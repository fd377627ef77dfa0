#include "DeviceInfoManager.h"
#include "FakePlatform.h"
#include "HeapWatch.h"

#include <gtest/gtest.h>

namespace {

TEST(DescriptionMemoryTest, DescribingThePropertiesKeepsNothing) {
    klx::fake::Scene scene;
    CDeviceInfoManager::Initialize();
    const HeapWatch watch(16 * mebibyte);
    {
        std::vector<PropertyDescription> properties;
        EXPECT_TRUE(CDeviceInfoManager::DescribeProperties(properties));
        EXPECT_GT(watch.grown(), 0);
    }
    EXPECT_EQ(watch.grown(), 0);
}

} // namespace
