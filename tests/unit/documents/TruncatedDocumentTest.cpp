#include "DocumentsTest.h"

using ::testing::IsEmpty;

namespace {

/** A document of the whole catalogue, cut off at every byte. */
class TruncatedDocumentTest : public ::testing::Test {
protected:
    ~TruncatedDocumentTest() override { DeviceInfoManagerSeam::uninstall(); }

    std::string dump(CDeviceInfoManager::DataFormatType format) {
        std::string document;
        EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo({{"*", {}}}, document, "", format));
        return document;
    }

    /** Restores the first `size` bytes. */
    bool restoreStart(const std::string& document, std::size_t size,
                      CDeviceInfoManager::DataFormatType format) {
        klx::fake::clearHistory();
        return CDeviceInfoManager::SetDeviceInfo(document.substr(0, size), format);
    }

    klx::fake::Scene scene;
};

TEST_F(TruncatedDocumentTest, XmlIsRefusedAndAppliesNothing) {
    const std::string document = dump(xml);
    const std::size_t end = document.rfind('>');
    ASSERT_GT(end, 8000u);
    for (std::size_t size = 0; size <= end; ++size) {
        ASSERT_FALSE(restoreStart(document, size, xml)) << size;
        ASSERT_THAT(klx::fake::calls(), IsEmpty()) << size;
    }
    EXPECT_TRUE(restoreStart(document, end + 1, xml));
}

TEST_F(TruncatedDocumentTest, JsonIsRefusedAndAppliesNothing) {
    const std::string document = dump(json);
    ASSERT_GT(document.size(), 5000u);
    for (std::size_t size = 0; size < document.size(); ++size) {
        ASSERT_FALSE(restoreStart(document, size, json)) << size;
        ASSERT_THAT(klx::fake::calls(), IsEmpty()) << size;
    }
    EXPECT_TRUE(restoreStart(document, document.size(), json));
}

} // namespace
