#include "Exception.h"
#include "ManagerTest.h"
#include "XmlMemory.h"

#include <libxml/globals.h>

#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

void ignoreStructured(void*, xmlErrorPtr) {}
void ignoreGeneric(void*, const char*, ...) {}

/** Queries that fail as a whole. */
class XmlFailureTest : public ManagerTest {
protected:
    bool query(const Request& request, int format = CDeviceInfoManager::DATA_FORMAT_XML) {
        return CDeviceInfoManager::GetDeviceInfo(
            request, data, "", static_cast<CDeviceInfoManager::DataFormatType>(format));
    }

    /** Queries everything; it has to fail with this one warning and leave the output alone. */
    void expectFailure(const std::string& message) {
        EXPECT_FALSE(query({{"", {"*"}}}));
        EXPECT_EQ(data, "as it was");
        EXPECT_THAT(fake::messages(5), ElementsAre(message));
        EXPECT_THAT(fake::logs(), Contains(managerLine(5, "GetDeviceInfo", message)));
    }

    void expectFailureOf(const std::vector<std::string>& paths, const std::string& message) {
        PropertyAccessorMap records;
        for (const std::string& path : paths) {
            records[path] = recordWithDefault("d", answering("v"));
        }
        use(std::move(records));
        expectFailure(message);
    }

    std::string data = "as it was";
};

TEST_F(XmlFailureTest, UnknownFormatIsRefused) {
    use({{"/A/p", record(throwing(5))}});
    for (const int format : {2, -1, 99}) {
        fake::clearHistory();
        EXPECT_FALSE(query({{"A", {"p"}}}, format));
        EXPECT_EQ(data, "as it was");
        EXPECT_THAT(fake::logs(),
                    ElementsAre(managerLine(4, "GetDeviceInfo",
                                            "GetDeviceInfo retDataFormat = [" +
                                                std::to_string(format) + "]"),
                                managerLine(4, "GetDeviceInfo", "invalid data format")));
    }
}

TEST_F(XmlFailureTest, UnknownFormatIsRefusedAfterTheCreation) {
    EXPECT_FALSE(query({}, 2));
    EXPECT_NE(seam->instance(), nullptr);
    EXPECT_THAT(fake::messages(4),
                ElementsAre("GetDeviceInfo retDataFormat = [2]", "Not yet initialized",
                            "initializing deviceMap", "invalid data format"));
}

TEST_F(XmlFailureTest, KeyWithoutALeadingSlashEndsTheQuery) {
    expectFailureOf({"/A/p", "Apple"}, "exception occured =[Invalid property name: Apple]");
}

TEST_F(XmlFailureTest, KeyWithoutALeadingSlashEndsTheQueryOfACategory) {
    use({{"/A/p", record(answering("v"))}, {"0A%s/p", record(answering("v"))}});
    EXPECT_FALSE(query({{"A", {"*"}}}));
    EXPECT_THAT(fake::messages(5),
                ElementsAre("exception occured =[Invalid property name: 0A%s/p]"));
}

TEST_F(XmlFailureTest, SlashBehindALineFeedIsNoLeadingSlash) {
    expectFailureOf({"Apple\n/p"}, "exception occured =[Invalid property name: Apple\n/p]");
}

TEST_F(XmlFailureTest, SingleQuoteInANameEndsTheQuery) {
    expectFailureOf({"/A/it's"}, "exception occured =[Failed to evaluate XPath: *[@name='it's']]");
}

TEST_F(XmlFailureTest, NameThatMatchesSeveralElementsEndsTheQuery) {
    expectFailureOf({"/A/1", "/A/2", "/A/x' or '1'='1"},
                    "exception occured =[XML tree has invalid structure]");
}

TEST_F(XmlFailureTest, NameThatIsTooMuchForTheSearchEndsTheQuery) {
    std::string path = "/A/";
    for (int i = 0; i < 1000000; ++i) {
        path += "a//";
    }
    expectFailureOf({path}, "exception occured =[Regex search failed]");
}

TEST_F(XmlFailureTest, LackOfMemoryEndsTheQueryOrLeavesTheDocumentWhole) {
    use({});
    const std::string whole = documentFor({});
    for (int nth = 1; nth <= 40; ++nth) {
        data = "as it was";
        const FailingXmlMemory memory(nth);
        const bool succeeded = query({});
        EXPECT_EQ(data, succeeded ? whole : "as it was") << "allocation " << nth;
    }
}

TEST_F(XmlFailureTest, LackOfMemoryForTheDocumentIsUnknown) {
    use({});
    const FailingXmlMemory memory(1);
    EXPECT_FALSE(query({}));
    EXPECT_THAT(fake::messages(5), ElementsAre("UNKNOWN exception occured"));
}

/** What libxml2 has to say about a query that fails. */
class XmlNoiseTest : public XmlFailureTest {
protected:
    XmlNoiseTest() { use({{"/A/it's", record(answering("v"))}}); }
    ~XmlNoiseTest() override {
        xmlSetStructuredErrorFunc(nullptr, nullptr);
        xmlSetGenericErrorFunc(nullptr, nullptr);
    }

    int context = 0;
    int otherContext = 0;
};

TEST_F(XmlNoiseTest, GoesToTheLogAndNotToStandardError) {
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(query({{"A", {"*"}}}));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(fake::logs(),
                Contains(fake::LineIn("XmlErrors.cpp", 3, "logXmlError", Not(IsEmpty()))));
}

TEST_F(XmlNoiseTest, LeavesTheCallersHandlersAsTheyWere) {
    xmlSetStructuredErrorFunc(&context, &ignoreStructured);
    xmlSetGenericErrorFunc(&otherContext, &ignoreGeneric);
    EXPECT_FALSE(query({{"A", {"*"}}}));
    EXPECT_TRUE(query({}));
    EXPECT_EQ(xmlStructuredError, &ignoreStructured);
    EXPECT_EQ(xmlStructuredErrorContext, &context);
    EXPECT_EQ(xmlGenericError, &ignoreGeneric);
    EXPECT_EQ(xmlGenericErrorContext, &otherContext);
}

TEST_F(XmlNoiseTest, LeavesNoHandlerWhereThereWasNone) {
    EXPECT_FALSE(query({{"A", {"*"}}}));
    EXPECT_EQ(xmlStructuredError, nullptr);
    EXPECT_EQ(xmlStructuredErrorContext, nullptr);
}

} // namespace
