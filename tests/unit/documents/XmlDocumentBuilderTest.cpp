#include "XmlDocumentBuilder.h"

#include "HeapWatch.h"

#include "Exception.h"
#include "KLXCommonUtil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

std::string textOf(xmlDocPtr document) {
    std::string text;
    KLXCommonUtil::xmlDocumentToString(document, text);
    return text;
}

class XmlDocumentBuilderTest : public ::testing::Test {
protected:
    std::string text() const { return textOf(builder.document()); }

    XmlDocumentBuilder builder{2};
    xmlNodePtr root = builder.addRoot("r");
};

TEST_F(XmlDocumentBuilderTest, DocumentIsWhatWasAdded) {
    const xmlNodePtr outer = builder.addNamedElement(root, "menu", "A");
    builder.setAttribute(builder.addNamedElement(outer, "property", "B"), "value", "1");
    builder.addElement(root, "last");
    EXPECT_EQ(text(), R"(<?xml version="1.0" encoding="utf-8"?>
<r>
  <menu name="A">
    <property name="B" value="1"/>
  </menu>
  <last/>
</r>
)");
}

TEST_F(XmlDocumentBuilderTest, LibxmlCopiesWhatWasBuilt) {
    builder.setAttribute(builder.addNamedElement(root, "menu", "A"), "value", "<&\">\n\xC3\xA9");
    const XmlDocument copy(xmlCopyDoc(builder.document(), 1));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(textOf(copy.get()), text());
}

TEST_F(XmlDocumentBuilderTest, LibxmlReadsAttributesOfWhatWasBuilt) {
    builder.setAttribute(root, "a", "1");
    builder.setAttribute(root, "b", "");
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(root, "a"), "1");
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(root, "b"), "");
}

TEST_F(XmlDocumentBuilderTest, SearchesFindWhatWasBuiltInItsOrder) {
    const xmlNodePtr first = builder.addNamedElement(root, "property", "B");
    builder.addNamedElement(root, "property", "A");
    const xmlNodePtr third = builder.addNamedElement(root, "property", "B");
    EXPECT_THAT(KLXCommonUtil::xmlFindNodes(root, "*[@name='B']"), ElementsAre(first, third));
}

TEST_F(XmlDocumentBuilderTest, NodesKnowTheirBuilder) {
    const XmlDocumentBuilder other(0);
    const xmlNodePtr element = builder.addElement(root, "e");
    EXPECT_EQ(&XmlDocumentBuilder::of(element), &builder);
    EXPECT_NE(&XmlDocumentBuilder::of(element), &other);
}

TEST_F(XmlDocumentBuilderTest, AttributeThatIsSetAgainKeepsItsPlace) {
    for (const char* const name : {"a", "b", "c"}) {
        builder.setAttribute(root, name, "old");
    }
    builder.setAttribute(root, "b", "a longer text than before");
    builder.setAttribute(root, "c", "");
    EXPECT_THAT(text(), HasSubstr(R"(<r a="old" b="a longer text than before" c=""/>)"));
}

TEST_F(XmlDocumentBuilderTest, ZeroByteEndsNoText) {
    builder.setAttribute(root, "a", std::string("1\0002", 3));
    EXPECT_THAT(text(), HasSubstr("a=\"1\xEF\xBF\xBD"
                                  "2\""));
}

TEST_F(XmlDocumentBuilderTest, MoreThanWasExpectedFindsRoom) {
    const std::string value(5000, 'x');
    for (int number = 0; number < 200; ++number) {
        builder.setAttribute(builder.addNamedElement(root, "property", std::to_string(number)),
                             "value", value);
    }
    EXPECT_EQ(xmlChildElementCount(root), 200U);
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(xmlFirstElementChild(root), "value"), value);
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(xmlLastElementChild(root), "value"), value);
}

TEST_F(XmlDocumentBuilderTest, OnlyElementsHaveAttributesAndChildren) {
    builder.setAttribute(root, "a", "1");
    const auto attribute = reinterpret_cast<xmlNodePtr>(root->properties);
    for (const xmlNodePtr node : {attribute, attribute->children}) {
        EXPECT_THROW(builder.setAttribute(node, "a", "1"), KLX::Exception);
        EXPECT_THROW(builder.addElement(node, "e"), KLX::Exception);
    }
    EXPECT_THAT(text(), HasSubstr("<r a=\"1\"/>"));
}

TEST(XmlDocumentBuilderMemoryTest, IsTakenInOnePieceForWhatIsExpected) {
    const HeapWatch watch(16 * mebibyte);
    XmlDocumentBuilder builder(900);
    const xmlNodePtr root = builder.addRoot("r");
    const long long before = watch.takings();
    for (int number = 100; number < 1000; ++number) {
        const xmlNodePtr element =
            builder.addNamedElement(root, "property", "Setting " + std::to_string(number));
        builder.setAttribute(element, "default", "0");
        builder.setAttribute(element, "value", "1");
    }
    EXPECT_EQ(watch.takings(), before);
}

TEST(XmlDocumentBuilderMemoryTest, IsAllGivenBack) {
    const HeapWatch watch(16 * mebibyte);
    {
        XmlDocumentBuilder builder(1000);
        const xmlNodePtr root = builder.addRoot("r");
        for (int number = 0; number < 2000; ++number) {
            builder.addNamedElement(root, "property", std::to_string(number % 7));
        }
        EXPECT_GT(watch.grown(), 0);
    }
    EXPECT_EQ(watch.grown(), 0);
}

} // namespace
