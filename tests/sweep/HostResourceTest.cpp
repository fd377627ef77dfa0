#include "DeviceInfoManager.h"
#include "Documents.h"
#include "HostTest.h"
#include "OpenDescriptors.h"

#include <cstdlib>
#include <functional>
#include <malloc.h>

using namespace klx::test;

namespace KLX::Host {
namespace {

constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;
constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
using Format = CDeviceInfoManager::DataFormatType;

/** A part of so many calls, since every write goes to the disk; all with KLX_SWEEP_FULL=1. */
int timesOf(int whole) {
    constexpr int part = 20;
    return std::getenv("KLX_SWEEP_FULL") != nullptr ? whole : whole / part;
}

std::string documentOf(const std::string& category, Format format) {
    std::string document;
    EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo({{category, {"*"}}}, document, "", format));
    return document;
}

void readOne(int nth) {
    static const Entries entries = entriesOf(documentOf("*", xml));
    const std::string& path =
        std::next(entries.begin(), nth % static_cast<int>(entries.size()))->first;
    const std::size_t slash = path.find('/', 1);
    std::string value;
    EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue(path.substr(1, slash - 1),
                                                           path.substr(slash + 1), value));
}

/** What a long run of calls leaves behind in this process. */
class HostResource : public HostTest {
protected:
    HostResource() { ::setenv("KLX_LOG", "off", 1); }

    /** The first tenth is left out: what is made once and kept is made then. */
    static void expectFlat(int times, const std::function<void(int)>& call) {
        const int first = std::max(times / 10, 1);
        run(0, first, call);
        const std::size_t descriptors = openDescriptors();
        const std::size_t memory = memoryInUse();
        run(first, times, call);
        EXPECT_EQ(openDescriptors(), descriptors);
        // The allocator's own spare blocks come and go.
        constexpr std::size_t noise = 16'384;
        EXPECT_LE(memoryInUse(), memory + noise);
    }

private:
    static void run(int begin, int end, const std::function<void(int)>& call) {
        for (int i = begin; i < end && !HasFailure(); ++i) {
            call(i);
        }
    }

    /** Nothing under the address sanitizer, which finds what is left by itself. */
    static std::size_t memoryInUse() {
        const auto heap = ::mallinfo2();
        return heap.uordblks + heap.hblkhd;
    }
};

TEST_F(HostResource, ReadsLeaveNothingBehind) {
    expectFlat(100'000, readOne);
}

TEST_F(HostResource, XmlDocumentsLeaveNothingBehind) {
    expectFlat(timesOf(10'000), [](int) { documentOf("*", xml); });
}

TEST_F(HostResource, JsonDocumentsLeaveNothingBehind) {
    expectFlat(timesOf(10'000), [](int) { documentOf("*", json); });
}

TEST_F(HostResource, RestoringFromXmlLeavesNothingBehind) {
    const std::string document = documentOf("Sound", xml);
    expectFlat(timesOf(10'000),
               [&document](int) { EXPECT_TRUE(CDeviceInfoManager::SetDeviceInfo(document, xml)); });
}

TEST_F(HostResource, RestoringFromJsonLeavesNothingBehind) {
    const std::string document = documentOf("Sound", json);
    expectFlat(timesOf(10'000), [&document](int) {
        EXPECT_TRUE(CDeviceInfoManager::SetDeviceInfo(document, json));
    });
}

} // namespace
} // namespace KLX::Host
