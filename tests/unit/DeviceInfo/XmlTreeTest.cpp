#include "ManagerTest.h"
#include "XmlText.h"

using namespace klx::test;

namespace {

/** How paths become elements. */
class XmlTreeTest : public ManagerTest {
protected:
    /** The elements for properties at these paths, whose value is "v" and whose default is "d". */
    std::string elementsOf(const std::vector<std::string>& paths) {
        PropertyAccessorMap records;
        for (const std::string& path : paths) {
            records[path] = recordWithDefault("d", answering("v"));
        }
        use(std::move(records));
        return insideDevice(documentFor({{"", {"*"}}}));
    }
};

TEST_F(XmlTreeTest, PathsShareMenusAndProperties) {
    EXPECT_EQ(elementsOf({"/A/s/1", "/A/s/2", "/A/t/1", "/B/s/1"}),
              "    <menu name=\"A\">\n"
              "      <property name=\"s\">\n"
              "        <property name=\"1\" default=\"d\" value=\"v\"/>\n"
              "        <property name=\"2\" default=\"d\" value=\"v\"/>\n"
              "      </property>\n"
              "      <property name=\"t\">\n"
              "        <property name=\"1\" default=\"d\" value=\"v\"/>\n"
              "      </property>\n"
              "    </menu>\n"
              "    <menu name=\"B\">\n"
              "      <property name=\"s\">\n"
              "        <property name=\"1\" default=\"d\" value=\"v\"/>\n"
              "      </property>\n"
              "    </menu>\n");
}

TEST_F(XmlTreeTest, LeafMayHoldFurtherProperties) {
    EXPECT_EQ(elementsOf({"/A/b", "/A/b/c"}),
              "    <menu name=\"A\">\n"
              "      <property name=\"b\" default=\"d\" value=\"v\">\n"
              "        <property name=\"c\" default=\"d\" value=\"v\"/>\n"
              "      </property>\n"
              "    </menu>\n");
}

TEST_F(XmlTreeTest, PathOfOneSegmentIsAMenu) {
    EXPECT_EQ(elementsOf({"/A"}), "    <menu name=\"A\" default=\"d\" value=\"v\"/>\n");
}

TEST_F(XmlTreeTest, DoubledSlashIsASlashOfTheName) {
    EXPECT_EQ(elementsOf({"/In//Out/a//b//c/d"}),
              "    <menu name=\"In/Out\">\n"
              "      <property name=\"a/b/c\">\n"
              "        <property name=\"d\" default=\"d\" value=\"v\"/>\n"
              "      </property>\n"
              "    </menu>\n");
}

TEST_F(XmlTreeTest, ThirdSlashInARowEndsTheName) {
    EXPECT_EQ(elementsOf({"/A///b"}), "    <menu name=\"A/\">\n"
                                      "      <property name=\"b\" default=\"d\" value=\"v\"/>\n"
                                      "    </menu>\n");
}

TEST_F(XmlTreeTest, DoubledSlashMayBeginOrEndTheName) {
    EXPECT_EQ(elementsOf({"/A/b//"}), "    <menu name=\"A\">\n"
                                      "      <property name=\"b/\" default=\"d\" value=\"v\"/>\n"
                                      "    </menu>\n");
    EXPECT_EQ(elementsOf({"///A"}), "    <menu name=\"/A\" default=\"d\" value=\"v\"/>\n");
}

TEST_F(XmlTreeTest, NamesMayBeEmpty) {
    EXPECT_EQ(elementsOf({"/"}), "    <menu name=\"\" default=\"d\" value=\"v\"/>\n");
    EXPECT_EQ(elementsOf({"/A/"}), "    <menu name=\"A\">\n"
                                   "      <property name=\"\" default=\"d\" value=\"v\"/>\n"
                                   "    </menu>\n");
}

TEST_F(XmlTreeTest, NamesAreComparedWhole) {
    EXPECT_EQ(elementsOf({"/A/b  c", "/A/b c", "/a/b c"}),
              "    <menu name=\"A\">\n"
              "      <property name=\"b  c\" default=\"d\" value=\"v\"/>\n"
              "      <property name=\"b c\" default=\"d\" value=\"v\"/>\n"
              "    </menu>\n"
              "    <menu name=\"a\">\n"
              "      <property name=\"b c\" default=\"d\" value=\"v\"/>\n"
              "    </menu>\n");
}

TEST_F(XmlTreeTest, MarkupInNamesIsEscaped) {
    EXPECT_EQ(elementsOf({"/General & <Privacy>/\"a\""}),
              "    <menu name=\"General &amp; &lt;Privacy&gt;\">\n"
              "      <property name=\"&quot;a&quot;\" default=\"d\" value=\"v\"/>\n"
              "    </menu>\n");
}

TEST_F(XmlTreeTest, LineFeedDoesNotEndAName) {
    EXPECT_EQ(elementsOf({"/A/b\nc/d"}),
              "    <menu name=\"A\">\n"
              "      <property name=\"b&#10;c\">\n"
              "        <property name=\"d\" default=\"d\" value=\"v\"/>\n"
              "      </property>\n"
              "    </menu>\n");
}

} // namespace
