#include "XmlErrors.h"
#include "LogMatchers.h"
#include "XmlMemory.h"
#include "XmlTree.h"

#include <gmock/gmock.h>
#include <libxml/globals.h>

#include <new>
#include <string>
#include <vector>

namespace fake = klx::fake;
using namespace klx::test;
using fake::LineIn;
using KLX::XmlErrorScope;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

using Messages = std::vector<std::string>;

void keepMessage(void* messages, xmlErrorPtr error) {
    static_cast<Messages*>(messages)->emplace_back(error->message);
}

class XmlErrorsTest : public ::testing::Test {
protected:
    ~XmlErrorsTest() override { xmlSetStructuredErrorFunc(nullptr, nullptr); }

    /** Makes the parser complain. @return what reached the process's standard error */
    static std::string complain() {
        ::testing::internal::CaptureStderr();
        parseXml("<open>");
        return ::testing::internal::GetCapturedStderr();
    }

    fake::Scene scene;
    Messages kept;
};

TEST_F(XmlErrorsTest, ComplaintsGoToTheLogWithoutTheirLineFeed) {
    xmlSetStructuredErrorFunc(&kept, &keepMessage);
    complain();
    ASSERT_THAT(kept, ElementsAre(EndsWith("\n")));
    const std::string message = kept.front().substr(0, kept.front().size() - 1);

    const auto errors = XmlErrorScope::toLog();
    EXPECT_EQ(complain(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("XmlErrors.cpp", 3, "logXmlError", message)));
}

TEST_F(XmlErrorsTest, ComplaintsGoToTheCallersHandlerWhereQuietIsTheDefault) {
    xmlSetStructuredErrorFunc(&kept, &keepMessage);
    const auto errors = XmlErrorScope::quietByDefault();
    EXPECT_EQ(complain(), "");
    EXPECT_THAT(kept, SizeIs(1));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(XmlErrorsTest, ComplaintsGoNowhereWhereQuietIsTheDefault) {
    const auto errors = XmlErrorScope::quietByDefault();
    EXPECT_EQ(complain(), "");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(XmlErrorsTest, QuietScopeInsideALoggingOneLogs) {
    const auto outer = XmlErrorScope::toLog();
    const auto inner = XmlErrorScope::quietByDefault();
    EXPECT_EQ(complain(), "");
    EXPECT_THAT(fake::logs(), SizeIs(1));
}

TEST_F(XmlErrorsTest, LoggingScopeTakesOverFromTheCallersHandler) {
    xmlSetStructuredErrorFunc(&kept, &keepMessage);
    const auto errors = XmlErrorScope::toLog();
    EXPECT_EQ(complain(), "");
    EXPECT_THAT(kept, IsEmpty());
    EXPECT_THAT(fake::logs(), SizeIs(1));
}

TEST_F(XmlErrorsTest, LackOfMemoryIsRememberedByALoggingScope) {
    const auto errors = XmlErrorScope::toLog();
    complain();
    EXPECT_NO_THROW(errors.requireMemory());
    {
        const FailingXmlMemory memory(1);
        EXPECT_EQ(xmlStrdup(reinterpret_cast<const xmlChar*>("text")), nullptr);
    }
    EXPECT_THROW(errors.requireMemory(), std::bad_alloc);
}

TEST_F(XmlErrorsTest, CallersHandlerIsBackAfterwards) {
    xmlSetStructuredErrorFunc(&kept, &keepMessage);
    { const auto errors = XmlErrorScope::toLog(); }
    { const auto errors = XmlErrorScope::quietByDefault(); }
    EXPECT_EQ(xmlStructuredError, &keepMessage);
    EXPECT_EQ(xmlStructuredErrorContext, &kept);
    complain();
    EXPECT_THAT(kept, SizeIs(1));
}

TEST_F(XmlErrorsTest, NoHandlerIsBackAfterwards) {
    { const auto errors = XmlErrorScope::toLog(); }
    EXPECT_EQ(xmlStructuredError, nullptr);
    EXPECT_EQ(xmlStructuredErrorContext, nullptr);
}

} // namespace
