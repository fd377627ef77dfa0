#include "CatalogueRow.h"
#include "ManagerTest.h"

#include <json/json.h>
#include <libxml/parser.h>

#include <algorithm>
#include <memory>
#include <set>
#include <sstream>

using namespace klx::test;
using ::testing::Contains;

namespace {

using Paths = std::set<std::string>;

/** The catalogue's paths without those that begin in one of some ways. */
Paths catalogueBut(const std::vector<std::string>& beginnings) {
    Paths paths;
    for (const CatalogueRow& row : expectedCatalogue()) {
        const auto begins = [&row](const std::string& beginning) {
            return row.path.compare(0, beginning.size(), beginning) == 0;
        };
        if (std::none_of(beginnings.begin(), beginnings.end(), begins)) {
            paths.insert(row.path);
        }
    }
    return paths;
}

std::string nameOf(xmlNodePtr element) {
    const std::unique_ptr<xmlChar, void (*)(void*)> name(
        xmlGetProp(element, reinterpret_cast<const xmlChar*>("name")), xmlFree);
    return name ? reinterpret_cast<const char*>(name.get()) : "";
}

void collectLeaves(xmlNodePtr parent, const std::string& prefix, Paths& paths) {
    for (xmlNodePtr child = xmlFirstElementChild(parent); child != nullptr;
         child = xmlNextElementSibling(child)) {
        const std::string path = prefix + "/" + nameOf(child);
        if (xmlHasProp(child, reinterpret_cast<const xmlChar*>("value")) != nullptr) {
            EXPECT_TRUE(paths.insert(path).second) << path << " is there twice";
        }
        collectLeaves(child, path, paths);
    }
}

/** A request for everything, over the whole catalogue on a set that knows nothing. */
class EverythingTest : public ManagerTest {
protected:
    static std::string documentIn(CDeviceInfoManager::DataFormatType format) {
        std::string document;
        EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo({{"*", {}}}, document, "", format));
        return document;
    }

    static Paths pathsInXml() {
        const std::string text = documentIn(CDeviceInfoManager::DATA_FORMAT_XML);
        const std::unique_ptr<xmlDoc, void (*)(xmlDocPtr)> document(
            xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, 0),
            xmlFreeDoc);
        Paths paths;
        collectLeaves(xmlFirstElementChild(xmlDocGetRootElement(document.get())), "", paths);
        return paths;
    }

    static Paths pathsInJson() {
        Json::Value root;
        std::istringstream(documentIn(CDeviceInfoManager::DATA_FORMAT_JSON)) >> root;
        Paths paths;
        for (const std::string& category : root.getMemberNames()) {
            for (const std::string& name : root[category].getMemberNames()) {
                EXPECT_TRUE(root[category][name]["Value"].isString()) << name;
                EXPECT_TRUE(root[category][name]["Default"].isString()) << name;
                paths.insert("/" + category + "/" + name);
            }
        }
        return paths;
    }
};

TEST_F(EverythingTest, InXmlIsTheTenCategoriesAndThePrivacyMenu) {
    EXPECT_EQ(pathsInXml(), catalogueBut({"/Connection/"}));
}

TEST_F(EverythingTest, InJsonIsTheTenCategoriesWithoutSources) {
    EXPECT_EQ(pathsInJson(),
              catalogueBut({"/Connection/", "/General & Privacy/", "/Input/Source_Connect/"}));
}

TEST_F(EverythingTest, InJsonTellsOfEverySourceThatHasNoRecord) {
    documentIn(CDeviceInfoManager::DATA_FORMAT_JSON);
    const std::vector<std::string> warnings = fake::messages(5);
    for (const char* source : {"HDMI1", "AV2", "COMP1", "SCART2", "USB4"}) {
        const std::string expected =
            std::string("key=[/Input/Source_Connect/") + source + "] does not exist";
        EXPECT_THAT(warnings, Contains(expected));
    }
}

} // namespace
