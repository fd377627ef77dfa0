#include "DocumentsTest.h"

#include <libxml/parser.h>

#include <memory>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

/** What the walk over a run of elements counts and applies. */
class XmlLeavesTest : public DocumentsTest {
protected:
    int leaves(const std::string& elements, const std::string& prefix = "/M",
               const std::string& only = "") {
        const std::string text = "<r>" + elements + "</r>";
        tree.reset(xmlReadMemory(text.data(), static_cast<int>(text.size()), "t", nullptr, 0));
        return DeviceInfoManagerSeam::restore(root()->children, prefix, only);
    }

    xmlNodePtr root() { return xmlDocGetRootElement(tree.get()); }

    struct FreeTree {
        void operator()(xmlDocPtr document) const { xmlFreeDoc(document); }
    };
    std::unique_ptr<xmlDoc, FreeTree> tree;
};

TEST_F(XmlLeavesTest, NothingHasNoLeaves) {
    EXPECT_EQ(DeviceInfoManagerSeam::restore(nullptr, "", ""), 0);
    EXPECT_EQ(leaves("text<!-- comment --><?pi?>"), 0);
}

TEST_F(XmlLeavesTest, PropertyWithoutChildrenIsALeaf) {
    EXPECT_EQ(leaves(xmlProperty("A", "1") + " " + xmlProperty("B", "2")), 2);
}

TEST_F(XmlLeavesTest, LeafWithoutAValueCounts) {
    EXPECT_EQ(leaves("<property name=\"A\"/>"), 1);
}

TEST_F(XmlLeavesTest, UnknownPathCounts) {
    EXPECT_EQ(leaves(xmlProperty("Nothing", "1")), 1);
    EXPECT_THAT(linesOf("propertySet"), Contains("4 menuID [/M/Nothing] not found"));
}

TEST_F(XmlLeavesTest, ElementAboveLeavesIsNone) {
    records.add("/M/A").add("/M/A/B").add("/M/A/C");
    EXPECT_EQ(leaves("<property name=\"A\" value=\"0\">" + xmlProperty("B", "1") +
                     xmlProperty("C", "2") + "</property>"),
              2);
    EXPECT_THAT(records.applied(), ElementsAre("/M/A/B = 1", "/M/A/C = 2"));
}

TEST_F(XmlLeavesTest, NestedLeavesCountAtEveryLevel) {
    records.add("/M/A/B/C");
    EXPECT_EQ(leaves("<property name=\"A\"><property name=\"B\">" + xmlProperty("C", "1") +
                     "</property></property>"),
              1);
    EXPECT_THAT(records.applied(), ElementsAre("/M/A/B/C = 1"));
    EXPECT_THAT(linesOf("restore"), Not(Contains(::testing::HasSubstr("does not contain"))));
}

TEST_F(XmlLeavesTest, InnermostPropertyIsTheLeaf) {
    EXPECT_EQ(leaves("<property name=\"A\"><property name=\"B\"/></property>"), 1);
    EXPECT_THAT(linesOf("restore"), ElementsAre("4 Path does not contain attribute value: /M/A/B"));
}

TEST_F(XmlLeavesTest, MenuMayStandAmongProperties) {
    records.add("/M/N/A").add("/M/N");
    EXPECT_EQ(leaves(xmlMenu("N", xmlProperty("A", "1")) + "<menu name=\"N\" value=\"2\"/>"), 2);
    EXPECT_THAT(records.applied(), ElementsAre("/M/N/A = 1", "/M/N = 2"));
}

TEST_F(XmlLeavesTest, MenuAndPropertyDirectlyBelowDeviceInfoAreNoLeaves) {
    records.add("/A").add("/B");
    EXPECT_EQ(
        leaves("<menu name=\"A\" value=\"1\"/>" + xmlProperty("B", "2") + "<menu name=\"C\"/>", ""),
        0);
    EXPECT_THAT(records.applied(), IsEmpty());
    EXPECT_THAT(linesOf("restore"), IsEmpty());
}

TEST_F(XmlLeavesTest, LeavesOfAMenuBelowDeviceInfoCount) {
    EXPECT_EQ(leaves(xmlMenu("A", xmlProperty("B", "1")) + xmlMenu("C", xmlProperty("D", "1")), ""),
              2);
}

TEST_F(XmlLeavesTest, ElementOfAnotherNameIsALeafWhateverItHolds) {
    records.add("/M/A").add("/M/A/B");
    EXPECT_EQ(leaves("<item name=\"A\" value=\"1\">" + xmlProperty("B", "2") + "</item>"), 1);
    EXPECT_THAT(records.applied(), ElementsAre("/M/A = 1"));
}

TEST_F(XmlLeavesTest, ElementOfAnotherNameBelowDeviceInfoIsALeaf) {
    records.add("/A");
    EXPECT_EQ(leaves("<item name=\"A\" value=\"1\"/>", ""), 1);
    EXPECT_THAT(records.applied(), ElementsAre("/A = 1"));
}

TEST_F(XmlLeavesTest, PassForOnePathAppliesThatPathOnly) {
    records.add("/M/A").add("/M/B");
    EXPECT_EQ(leaves(xmlProperty("A", "1") + xmlProperty("B", "2"), "/M", "/M/B"), 2);
    EXPECT_THAT(records.applied(), ElementsAre("/M/B = 2"));
    EXPECT_THAT(linesOf("propertySet"), IsEmpty());
}

TEST_F(XmlLeavesTest, PassForOnePathTakesItsElementsOutOfTheTree) {
    records.add("/M/B");
    leaves(xmlProperty("B", "1") + xmlProperty("A", "2") + xmlProperty("B", "3") +
               xmlProperty("B", "4"),
           "/M", "/M/B");
    ASSERT_EQ(xmlChildElementCount(root()), 1u);
    EXPECT_EQ(DeviceInfoManagerSeam::restore(root()->children, "/M", ""), 1);
    EXPECT_THAT(records.applied(), ElementsAre("/M/B = 1", "/M/B = 3", "/M/B = 4"));
}

TEST_F(XmlLeavesTest, ElementWithoutAValueStaysInTheTree) {
    records.add("/M/B");
    leaves("<property name=\"B\"/>", "/M", "/M/B");
    EXPECT_EQ(xmlChildElementCount(root()), 1u);
}

TEST_F(XmlLeavesTest, LeafWithoutAValueIsReportedInEveryPass) {
    EXPECT_TRUE(restore(xmlDocument(xmlMenu("M", "<property name=\"A\"/>")), xml));
    const std::string line = "4 Path does not contain attribute value: /M/A";
    EXPECT_THAT(linesOf("restore"), ElementsAre(line, line, line, line));
}

TEST_F(XmlLeavesTest, LeafWithoutAValueCostsItsSiblingsNothing) {
    records.add("/M/A").add("/M/B");
    leaves(xmlProperty("A", "1") + "<property name=\"X\"/>" + xmlProperty("B", "2"));
    EXPECT_THAT(records.applied(), ElementsAre("/M/A = 1", "/M/B = 2"));
}

} // namespace
