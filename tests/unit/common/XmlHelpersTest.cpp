#include "Exception.h"
#include "KLXCommonUtil.h"
#include "LogMatchers.h"
#include "Thrown.h"
#include "XmlTree.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace fake = klx::fake;
using namespace klx::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

std::vector<std::string> namesOf(const std::vector<xmlNodePtr>& nodes) {
    std::vector<std::string> names;
    for (const xmlNodePtr node : nodes) {
        names.push_back(nameOf(node));
    }
    return names;
}

std::string serialised(const XmlTree& tree) {
    std::string text;
    KLXCommonUtil::xmlDocumentToString(tree.get(), text);
    return text;
}

class XmlHelpersTest : public ::testing::Test {
protected:
    xmlNodePtr root() { return rootOf(tree); }

    fake::Scene scene;
    XmlTree tree = parseXml("<r known='1'><a name='x'/><b name='y'><c name='x'/></b><d/></r>");
};

TEST_F(XmlHelpersTest, AttributeIsCreated) {
    const xmlAttrPtr attribute = KLXCommonUtil::xmlSetAttribute(root(), "new", "value");
    ASSERT_NE(attribute, nullptr);
    EXPECT_EQ(attribute->parent, root());
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(root(), "new"), "value");
}

TEST_F(XmlHelpersTest, AttributeSetTwiceHoldsTheSecondValueOnce) {
    XmlTree single = parseXml("<r/>");
    KLXCommonUtil::xmlSetAttribute(rootOf(single), "a", "first");
    const xmlAttrPtr attribute = KLXCommonUtil::xmlSetAttribute(rootOf(single), "a", "second");
    EXPECT_EQ(attribute, rootOf(single)->properties);
    EXPECT_EQ(serialised(single),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<r a=\"second\"/>\n");
}

TEST_F(XmlHelpersTest, AttributeValueIsEscapedInTheDocumentOnly) {
    XmlTree single = parseXml("<r/>");
    KLXCommonUtil::xmlSetAttribute(rootOf(single), "a", "<&\"'>");
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(rootOf(single), "a"), "<&\"'>");
    EXPECT_THAT(serialised(single), ::testing::HasSubstr("a=\"&lt;&amp;&quot;'&gt;\""));
}

TEST_F(XmlHelpersTest, AttributeMayBeEmpty) {
    KLXCommonUtil::xmlSetAttribute(root(), "known", "");
    EXPECT_EQ(KLXCommonUtil::xmlGetAttribute(root(), "known"), "");
}

TEST_F(XmlHelpersTest, SettingAnAttributeReturnsNullWhereLibxmlDoes) {
    EXPECT_EQ(KLXCommonUtil::xmlSetAttribute(root(), nullptr, "value"), nullptr);
}

TEST_F(XmlHelpersTest, MissingAttributeThrowsItsName) {
    EXPECT_EQ(thrownBy([this] { KLXCommonUtil::xmlGetAttribute(root(), "absent%s"); }),
              "Failed to get attribute: absent%s");
}

TEST_F(XmlHelpersTest, AttributeOfNoNodeIsMissing) {
    EXPECT_EQ(thrownBy([] { KLXCommonUtil::xmlGetAttribute(nullptr, "name"); }),
              "Failed to get attribute: name");
}

TEST_F(XmlHelpersTest, RelativeExpressionSearchesTheChildren) {
    EXPECT_THAT(namesOf(KLXCommonUtil::xmlFindNodes(root(), "*[@name='x']")), ElementsAre("a"));
    EXPECT_THAT(namesOf(KLXCommonUtil::xmlFindNodes(root()->children->next, "*[@name='x']")),
                ElementsAre("c"));
}

TEST_F(XmlHelpersTest, AbsoluteExpressionSearchesTheDocument) {
    const xmlNodePtr leaf = root()->children;
    EXPECT_THAT(namesOf(KLXCommonUtil::xmlFindNodes(leaf, "//*[@name]")),
                ElementsAre("a", "b", "c"));
}

TEST_F(XmlHelpersTest, NodesComeInDocumentOrder) {
    const xmlNodePtr last = root()->last;
    EXPECT_THAT(namesOf(KLXCommonUtil::xmlFindNodes(last, "preceding-sibling::*")),
                ElementsAre("a", "b"));
    EXPECT_THAT(namesOf(KLXCommonUtil::xmlFindNodes(root(), "d | b | a")),
                ElementsAre("a", "b", "d"));
}

TEST_F(XmlHelpersTest, NamespacesThatDieWithTheResultAreNoNodes) {
    const XmlTree named = parseXml("<a xmlns:x='urn:x'/>");
    EXPECT_THAT(KLXCommonUtil::xmlFindNodes(rootOf(named), "namespace::*"), IsEmpty());
    EXPECT_THAT(namesOf(KLXCommonUtil::xmlFindNodes(rootOf(named), "namespace::* | .")),
                ElementsAre("a"));
}

TEST_F(XmlHelpersTest, NoMatchIsAnEmptyList) {
    EXPECT_THAT(KLXCommonUtil::xmlFindNodes(root(), "*[@name='z']"), IsEmpty());
}

TEST_F(XmlHelpersTest, ExpressionThatIsNoNodeSetGivesAnEmptyList) {
    EXPECT_THAT(KLXCommonUtil::xmlFindNodes(root(), "1 + 1"), IsEmpty());
    EXPECT_THAT(KLXCommonUtil::xmlFindNodes(root(), "'text'"), IsEmpty());
    EXPECT_THAT(KLXCommonUtil::xmlFindNodes(root(), "true()"), IsEmpty());
}

TEST_F(XmlHelpersTest, NullNodeThrows) {
    EXPECT_EQ(thrownBy([] { KLXCommonUtil::xmlFindNodes(nullptr, "*"); }), "xmlNodePtr is null");
}

TEST_F(XmlHelpersTest, WrongExpressionThrowsIt) {
    EXPECT_EQ(thrownBy([this] { KLXCommonUtil::xmlFindNodes(root(), "*[@name='it's %d']"); }),
              "Failed to evaluate XPath: *[@name='it's %d']");
}

TEST_F(XmlHelpersTest, NeverLogs) {
    ::testing::internal::CaptureStderr();
    thrownBy([this] { KLXCommonUtil::xmlFindNodes(root(), "*["); });
    thrownBy([this] { KLXCommonUtil::xmlGetAttribute(root(), "absent"); });
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(XmlHelpersTest, DocumentBeginsWithADeclarationOfItsEncoding) {
    EXPECT_THAT(serialised(tree), StartsWith("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<r "));
}

TEST_F(XmlHelpersTest, DocumentIsIndented) {
    EXPECT_EQ(serialised(parseXml("<r><a><b/></a></r>")),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
              "<r>\n"
              "  <a>\n"
              "    <b/>\n"
              "  </a>\n"
              "</r>\n");
}

TEST_F(XmlHelpersTest, DocumentKeepsCharactersBeyondAscii) {
    EXPECT_THAT(serialised(parseXml("<r a='\xC3\xA9'/>")), ::testing::HasSubstr("a=\"\xC3\xA9\""));
}

TEST_F(XmlHelpersTest, DocumentReplacesWhatTheTextHeld) {
    std::string text = "what was there";
    KLXCommonUtil::xmlDocumentToString(tree.get(), text);
    EXPECT_THAT(text, StartsWith("<?xml"));
}

} // namespace
