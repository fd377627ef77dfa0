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

TEST_F(XmlDocumentBuilderTest, SiblingsAreLinkedInBothDirections) {
    const xmlNodePtr first = builder.addElement(root, "e");
    const xmlNodePtr second = builder.addElement(root, "e");
    EXPECT_EQ(root->children, first);
    EXPECT_EQ(root->last, second);
    EXPECT_EQ(first->next, second);
    EXPECT_EQ(second->prev, first);

    builder.setAttribute(root, "a", "1");
    builder.setAttribute(root, "b", "2");
    const xmlAttrPtr attribute = root->properties;
    ASSERT_NE(attribute->next, nullptr);
    EXPECT_EQ(attribute->next->prev, attribute);
    EXPECT_EQ(attribute->next->next, nullptr);
    EXPECT_EQ(attribute->last, attribute->children);
}

TEST_F(XmlDocumentBuilderTest, NodesKnowTheirBuilder) {
    XmlDocumentBuilder other(0);
    EXPECT_EQ(&XmlDocumentBuilder::of(builder.addElement(root, "e")), &builder);
    EXPECT_EQ(&XmlDocumentBuilder::of(other.addRoot("r")), &other);
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

TEST_F(XmlDocumentBuilderTest, OnlyElementsHaveAttributesAndElements) {
    builder.setAttribute(root, "a", "1");
    const auto attribute = reinterpret_cast<xmlNodePtr>(root->properties);
    for (const xmlNodePtr node : {attribute, attribute->children, root->parent}) {
        EXPECT_THROW(builder.setAttribute(node, "a", "1"), KLX::Exception);
        EXPECT_THROW(builder.addElement(node, "e"), KLX::Exception);
    }
    EXPECT_THAT(text(), HasSubstr("<r a=\"1\"/>\n"));
}

/** Somebody who hangs data of their own on each document of libxml2's. */
class DataOnDocuments {
public:
    DataOnDocuments()
        : m_atRegistration(xmlRegisterNodeDefault(&hang)),
          m_atRelease(xmlDeregisterNodeDefault(&take)) {
        found = nullptr;
    }
    ~DataOnDocuments() {
        xmlRegisterNodeDefault(m_atRegistration);
        xmlDeregisterNodeDefault(m_atRelease);
    }
    DataOnDocuments(const DataOnDocuments&) = delete;
    DataOnDocuments& operator=(const DataOnDocuments&) = delete;

    static int data;
    static void* found;

private:
    static void hang(xmlNodePtr node) { node->_private = &data; }
    static void take(xmlNodePtr node) { found = node->_private; }

    xmlRegisterNodeFunc m_atRegistration;
    xmlDeregisterNodeFunc m_atRelease;
};

int DataOnDocuments::data = 0;
void* DataOnDocuments::found = nullptr;

TEST(XmlDocumentBuilderCallbackTest, FindsAtTheEndWhatItHungOnTheDocument) {
    const DataOnDocuments data;
    XmlDocumentBuilder(0).addRoot("r");
    EXPECT_EQ(DataOnDocuments::found, &DataOnDocuments::data);
}

/** Adds as many properties, each third one in a group of its own, in the order of their names. */
void addProperties(XmlDocumentBuilder& builder, xmlNodePtr root, int count) {
    xmlNodePtr parent = root;
    for (int number = 0; number < count; ++number) {
        const std::string suffix = std::to_string(1000 + number);
        if (number % 3 == 0) {
            parent = builder.addNamedElement(root, "property", "A group " + suffix);
        }
        const xmlNodePtr element = builder.addNamedElement(parent, "property", "Setting " + suffix);
        builder.setAttribute(element, "default", "0");
        builder.setAttribute(element, "value", "a longer value " + suffix);
    }
}

TEST(XmlDocumentBuilderMemoryTest, IsOnePieceForTheExpectedProperties) {
    const HeapWatch watch(16 * mebibyte);
    XmlDocumentBuilder builder(900);
    addProperties(builder, builder.addRoot("r"), 900);
    EXPECT_EQ(watch.piecesOfResources(), 1);
}

TEST(XmlDocumentBuilderMemoryTest, IsTakenForWhatIsBeyondToo) {
    const HeapWatch watch(16 * mebibyte);
    XmlDocumentBuilder builder(0);
    addProperties(builder, builder.addRoot("r"), 900);
    EXPECT_GT(watch.piecesOfResources(), 1);
}

TEST(XmlDocumentBuilderMemoryTest, IsTakenOnceForATextThatIsSetAgain) {
    const HeapWatch watch(16 * mebibyte);
    XmlDocumentBuilder builder(0);
    const xmlNodePtr root = builder.addRoot("r");
    for (int time = 0; time < 100; ++time) {
        builder.setAttribute(root, "a", std::string(mebibyte - static_cast<unsigned>(time), 'x'));
    }
    EXPECT_LT(watch.peak(), 4 * mebibyte);
}

TEST(XmlDocumentBuilderMemoryTest, IsAllGivenBack) {
    const HeapWatch watch(16 * mebibyte);
    {
        XmlDocumentBuilder builder(10);
        addProperties(builder, builder.addRoot("r"), 900);
        EXPECT_GT(watch.grown(), 0);
    }
    EXPECT_EQ(watch.grown(), 0);
}

} // namespace
