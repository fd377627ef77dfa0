#include "ManagerTest.h"
#include "XmlText.h"

using namespace klx::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Which properties a request collects, and in which order. */
class XmlRequestTest : public ManagerTest {
protected:
    /** Records at these paths whose getters tell the path. */
    void usePaths(const std::vector<std::string>& paths) {
        PropertyAccessorMap records;
        for (const std::string& path : paths) {
            records[path] = recordWithDefault("", answering("value of " + path));
        }
        use(std::move(records));
    }

    /** The paths of the properties in the document for a request, in the document's order. */
    static std::vector<std::string> collected(const Request& request) {
        return leafPaths(documentFor(request));
    }
};

TEST_F(XmlRequestTest, BuildsTheDocumentThatItPromises) {
    use({{"/Picture/Picture Mode", recordWithDefault("Standard", answering("Movie"))},
         {"/Picture/Expert Settings/HDR+ Mode", record(answering("On"), answering("Off"))}});
    EXPECT_EQ(documentFor({{"Picture", {"Picture Mode", "Expert Settings/HDR+ Mode"}}}),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
              "<rm_as version=\"2.5\">\n"
              "  <deviceInfo devicetype=\"TV\">\n"
              "    <menu name=\"Picture\">\n"
              "      <property name=\"Picture Mode\" default=\"Standard\" value=\"Movie\"/>\n"
              "      <property name=\"Expert Settings\">\n"
              "        <property name=\"HDR+ Mode\" default=\"Off\" value=\"On\"/>\n"
              "      </property>\n"
              "    </menu>\n"
              "  </deviceInfo>\n"
              "</rm_as>\n");
    EXPECT_THAT(fake::logs(),
                ElementsAre(managerLine(4, "GetDeviceInfo", "GetDeviceInfo retDataFormat = [1]"),
                            managerLine(3, "createTree", "Creating Picture"),
                            managerLine(3, "createTree", "Creating Picture Mode"),
                            managerLine(3, "createTree", "Creating Expert Settings"),
                            managerLine(3, "createTree", "Creating HDR+ Mode"),
                            managerLine(3, "m_getPropValue", "There is NO fixed default value.")));
}

TEST_F(XmlRequestTest, EmptyRequestGivesAnEmptyDevice) {
    usePaths({"/Picture/a"});
    EXPECT_EQ(documentFor({}), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                               "<rm_as version=\"2.5\">\n"
                               "  <deviceInfo devicetype=\"TV\"/>\n"
                               "</rm_as>\n");
}

TEST_F(XmlRequestTest, EmptyListAddsNothing) {
    usePaths({"/Picture/a", "/Sound/a"});
    EXPECT_THAT(collected({{"Picture", {}}, {"Sound", {"a"}}}), ElementsAre("/Sound/a"));
}

TEST_F(XmlRequestTest, UnknownPathIsLeftOutWithoutALine) {
    usePaths({"/Picture/a"});
    EXPECT_THAT(collected({{"Picture", {"absent", "a"}}, {"Absent", {"a", "*"}}}),
                ElementsAre("/Picture/a"));
    EXPECT_THAT(fake::messages(5), IsEmpty());
    EXPECT_THAT(fake::messages(4), ElementsAre("GetDeviceInfo retDataFormat = [1]"));
}

TEST_F(XmlRequestTest, CategoriesComeInTheirOrderAndPathsInTheirLists) {
    usePaths({"/Picture/a", "/Picture/b", "/Sound/a", "/Sound/b"});
    EXPECT_THAT(collected({{"Sound", {"b", "a"}}, {"Picture", {"b", "a"}}}),
                ElementsAre("/Picture/b", "/Picture/a", "/Sound/b", "/Sound/a"));
}

TEST_F(XmlRequestTest, StarCollectsTheCategoryInKeyOrder) {
    usePaths({"/Picture/b", "/Picture/a/z", "/Sound/a", "/Network/a"});
    EXPECT_THAT(collected({{"Picture", {"*"}}}), ElementsAre("/Picture/a/z", "/Picture/b"));
}

TEST_F(XmlRequestTest, StarTakesTheCategoryForAMerePrefix) {
    usePaths({"/Picture/a", "/Picture2/a", "/Pi", "/Piano/a", "/Sound/a"});
    EXPECT_THAT(collected({{"Pict", {"*"}}}), ElementsAre("/Picture/a", "/Picture2/a"));
}

TEST_F(XmlRequestTest, StarForGeneralCollectsGeneralAndPrivacyUnderItsOwnMenu) {
    usePaths({"/General/a", "/General & Privacy/b", "/Generation/c"});
    EXPECT_THAT(collected({{"General", {"*"}}}), ElementsAre("/General & Privacy/b", "/General/a"));
}

TEST_F(XmlRequestTest, StarStopsAtTheFirstKeyOfAnotherName) {
    usePaths({"/A/1", "/AB", "/B/2"});
    EXPECT_THAT(collected({{"A", {"*"}}}), ElementsAre("/A/1", "/AB"));
}

TEST_F(XmlRequestTest, StarAndAPathCollectAPropertyOnce) {
    usePaths({"/Picture/a", "/Picture/b"});
    EXPECT_THAT(collected({{"Picture", {"b", "*", "b"}}}), ElementsAre("/Picture/b", "/Picture/a"));
}

TEST_F(XmlRequestTest, StarOfAnEmptyCategoryCollectsEverything) {
    usePaths({"/A/a", "/B/b"});
    EXPECT_THAT(collected({{"", {"*"}}}), ElementsAre("/A/a", "/B/b"));
}

TEST_F(XmlRequestTest, CategoryMayHaveSlashes) {
    usePaths({"/General & Privacy/Accessibility/Caption Settings/Caption"});
    EXPECT_THAT(collected({{"General & Privacy/Accessibility", {"Caption Settings/Caption"}}}),
                ElementsAre("/General & Privacy/Accessibility/Caption Settings/Caption"));
}

TEST_F(XmlRequestTest, CategoriesOutsideTheTenCanBeNamed) {
    usePaths({"/Connection/a", "/General & Privacy/b"});
    EXPECT_THAT(collected({{"Connection", {"*"}}, {"General & Privacy", {"b"}}}),
                ElementsAre("/Connection/a", "/General & Privacy/b"));
}

const std::vector<std::string> allMenus = {"/Broadcasting/p",      "/Connection/p", "/Factory/p",
                                           "/General & Privacy/p", "/General/p",    "/Input/p",
                                           "/Network/p",           "/Other/p",      "/Picture/p",
                                           "/SetInformation/p",    "/Sound/p",      "/Support/p",
                                           "/SystemInformation/p"};

TEST_F(XmlRequestTest, FirstCategoryStarStandsForTheTenCategories) {
    usePaths(allMenus);
    EXPECT_THAT(collected({{"*", {"*"}}}),
                ElementsAre("/Broadcasting/p", "/Factory/p", "/General & Privacy/p", "/General/p",
                            "/Input/p", "/Network/p", "/Picture/p", "/SetInformation/p", "/Sound/p",
                            "/Support/p", "/SystemInformation/p"));
}

TEST_F(XmlRequestTest, FirstCategoryStarNeedsNoPaths) {
    usePaths({"/Picture/a", "/Sound/b"});
    EXPECT_THAT(collected({{"*", {}}}), ElementsAre("/Picture/a", "/Sound/b"));
}

TEST_F(XmlRequestTest, FirstCategoryStarReplacesTheRestOfTheRequest) {
    usePaths({"/Connection/a", "/Picture/a"});
    EXPECT_THAT(collected({{"*", {"*"}}, {"Connection", {"a"}}}), ElementsAre("/Picture/a"));
}

TEST_F(XmlRequestTest, StarIsNoCategoryBehindAnotherOne) {
    usePaths({"/Picture/a"});
    EXPECT_THAT(collected({{"!", {}}, {"*", {"*"}}}), IsEmpty());
}

} // namespace
