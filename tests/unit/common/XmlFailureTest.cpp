#include "KLXCommonUtil.h"
#include "LogMatchers.h"
#include "Thrown.h"
#include "XmlMemory.h"
#include "XmlTree.h"

#include <gmock/gmock.h>

#include <string>

using namespace klx::test;
using ::testing::IsEmpty;

namespace {

class XmlFailureTest : public ::testing::Test {
protected:
    /** What serialising throws when libxml2's nth allocation fails. */
    std::string serialisingFails(int nth) {
        return thrownBy([this, nth] {
            const FailingXmlMemory memory(nth);
            KLXCommonUtil::xmlDocumentToString(tree.get(), out);
        });
    }

    /** What a search throws when libxml2's nth allocation fails. */
    std::string searchFails(int nth) {
        return thrownBy([this, nth] {
            const FailingXmlMemory memory(nth);
            KLXCommonUtil::xmlFindNodes(rootOf(tree), "*[@name='x']");
        });
    }

    klx::fake::Scene scene;
    XmlTree tree = parseXml("<r><a name='x'/></r>");
    std::string out = "as it was";
};

TEST_F(XmlFailureTest, NoBuffer) {
    EXPECT_EQ(serialisingFails(1), "Failed to create buffer with xmlBufferCreate().");
    EXPECT_EQ(out, "as it was");
}

TEST_F(XmlFailureTest, NoOutputBuffer) {
    EXPECT_EQ(serialisingFails(3),
              "Failed to create output buffer with xmlOutputBufferCreateBuffer().");
    EXPECT_EQ(out, "as it was");
}

TEST_F(XmlFailureTest, NothingToSave) {
    EXPECT_EQ(thrownBy([this] { KLXCommonUtil::xmlDocumentToString(nullptr, out); }),
              "Failed to save XML to buffer with xmlSaveFormatFileTo().");
    EXPECT_EQ(out, "as it was");
}

TEST_F(XmlFailureTest, NoXPathContext) {
    EXPECT_EQ(searchFails(1), "xPathContextPtr is null");
}

// The context takes a number of allocations that differs between versions, and does without some.
TEST_F(XmlFailureTest, NoMemoryToEvaluate) {
    std::string thrown = searchFails(2);
    for (int nth = 3; nth <= 100 && thrown == "(nothing thrown)"; ++nth) {
        thrown = searchFails(nth);
    }
    EXPECT_EQ(thrown, "Failed to evaluate XPath: *[@name='x']");
}

TEST_F(XmlFailureTest, EveryFailedAllocationThrowsOrGivesTheWholeDocument) {
    std::string whole;
    KLXCommonUtil::xmlDocumentToString(tree.get(), whole);
    for (int nth = 1; nth <= 30; ++nth) {
        out = "as it was";
        const bool threw = serialisingFails(nth) != "(nothing thrown)";
        EXPECT_EQ(out, threw ? "as it was" : whole) << "allocation " << nth;
    }
}

TEST_F(XmlFailureTest, NothingIsPrintedOrLogged) {
    ::testing::internal::CaptureStderr();
    for (int nth = 1; nth <= 30; ++nth) {
        serialisingFails(nth);
        searchFails(nth);
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(klx::fake::history(), IsEmpty());
}

} // namespace
