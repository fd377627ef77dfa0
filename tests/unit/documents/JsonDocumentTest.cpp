#include "DocumentsTest.h"

#include "Exception.h"

#include <json/json.h>

namespace fake = klx::fake;
using fake::Line;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

constexpr const char* builder = "m_getPropValue";

class JsonDocumentTest : public DocumentsTest {
protected:
    /** The document, parsed. */
    Json::Value parsed(const Request& request) {
        Json::Value root;
        EXPECT_TRUE(DeviceInfoManagerSeam::createJsonNode(dump(request, json), root));
        return root;
    }

    std::vector<std::string> menus(const Request& request) {
        return parsed(request).getMemberNames();
    }

    std::vector<std::string> properties(const Request& request, const std::string& menu) {
        return parsed(request)[menu].getMemberNames();
    }

    Json::Value property(const std::string& menu, const std::string& name) {
        return parsed({{menu, {name}}})[menu][name];
    }
};

TEST_F(JsonDocumentTest, PathBecomesOneMemberOfItsCategory) {
    records.add("/Picture/Expert Settings/HDR+ Mode", "1", std::string("0"));
    const Json::Value root = parsed({{"Picture", {"Expert Settings/HDR+ Mode"}}});
    EXPECT_THAT(root["Picture"].getMemberNames(), ElementsAre("Expert Settings/HDR+ Mode"));
    EXPECT_EQ(root["Picture"]["Expert Settings/HDR+ Mode"]["Value"], "1");
    EXPECT_EQ(root["Picture"]["Expert Settings/HDR+ Mode"]["Default"], "0");
}

TEST_F(JsonDocumentTest, PropertyHasTwoStringMembersOnly) {
    records.add("/Sound/Mute", "1");
    const Json::Value mute = property("Sound", "Mute");
    EXPECT_THAT(mute.getMemberNames(), ElementsAre("Default", "Value"));
    EXPECT_TRUE(mute["Default"].isString());
    EXPECT_TRUE(mute["Value"].isString());
}

TEST_F(JsonDocumentTest, CategoryWithSlashesIsOneMember) {
    records.add("/General & Privacy/Accessibility/Grayscale", "1");
    EXPECT_THAT(menus({{"General & Privacy/Accessibility", {"Grayscale"}}}),
                ElementsAre("General & Privacy/Accessibility"));
}

TEST_F(JsonDocumentTest, StarCollectsTheCategory) {
    records.add("/Picture/A").add("/Picture/B/C").add("/Sound/D").add("/Input/E");
    EXPECT_THAT(properties({{"Picture", {"*"}}}, "Picture"), ElementsAre("A", "B/C"));
}

TEST_F(JsonDocumentTest, StarCollectsNothingBehindAKeyOfAnotherCategory) {
    records.add("/Picture/A").add("/Pixel/B");
    EXPECT_THAT(menus({{"Picture", {"*"}}}), ElementsAre("Picture"));
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

TEST_F(JsonDocumentTest, FirstCategoryStarStandsForTheTenCategories) {
    for (const char* menu :
         {"Broadcasting", "Connection", "Factory", "General", "Input", "Network", "Picture",
          "SetInformation", "Sound", "Support", "SystemInformation"}) {
        records.add("/" + std::string(menu) + "/A");
    }
    EXPECT_THAT(menus({{"*", {}}, {"Connection", {"*"}}}),
                ElementsAre("Broadcasting", "Factory", "General", "Input", "Network", "Picture",
                            "SetInformation", "Sound", "Support", "SystemInformation"));
}

TEST_F(JsonDocumentTest, StarOfALongerCategoryIsLoggedAndLeftOut) {
    records.add("/General/A").add("/General & Privacy/B/C");
    EXPECT_THAT(menus({{"General", {"*"}}}), ElementsAre("General"));
    EXPECT_THAT(fake::messages(5), ElementsAre("key=[/General/& Privacy/B/C] does not exist"));
}

TEST_F(JsonDocumentTest, StarOfACategoryInAKeyWithoutItsSlashIsLoggedAndLeftOut) {
    records.add("Picture/A");
    EXPECT_EQ(dump({{"icture", {"*"}}}, json), "null");
    EXPECT_THAT(fake::messages(5), ElementsAre("key=[/icture/A] does not exist"));
}

TEST_F(JsonDocumentTest, CategoryBeyondTheTenWorksByName) {
    records.add("/General & Privacy/B/C").add("/Connection/D");
    EXPECT_THAT(menus({{"General & Privacy", {"*"}}, {"Connection", {"D"}}}),
                ElementsAre("Connection", "General & Privacy"));
}

TEST_F(JsonDocumentTest, KeyShorterThanWhatIsCutOffIsSkipped) {
    records.add("/Menu").add("/Menu/A");
    EXPECT_THAT(properties({{"Menu", {"*"}}}, "Menu"), ElementsAre("A"));
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

TEST_F(JsonDocumentTest, PropertyMayHaveAnEmptyName) {
    records.add("/Menu/", "1");
    EXPECT_EQ(parsed({{"Menu", {"*"}}})["Menu"][""]["Value"], "1");
}

TEST_F(JsonDocumentTest, UnknownPathIsLoggedAndAddsNothing) {
    records.add("/Picture/A");
    EXPECT_EQ(dump({{"Picture", {"Nothing"}}}, json), "null");
    EXPECT_THAT(fake::logs(), Contains(Line(5, builder, "key=[/Picture/Nothing] does not exist")));
}

TEST_F(JsonDocumentTest, UnknownPathCostsNothingElse) {
    records.add("/Picture/A").add("/Picture/B");
    EXPECT_THAT(properties({{"Picture", {"B", "Nothing", "A"}}}, "Picture"), ElementsAre("A", "B"));
}

TEST_F(JsonDocumentTest, CategoryWithoutPropertiesDoesNotAppear) {
    records.add("/Picture/A");
    EXPECT_THAT(menus({{"Picture", {"*"}}, {"Quiet", {"*"}}, {"Sound", {}}}),
                ElementsAre("Picture"));
}

TEST_F(JsonDocumentTest, RequestForNothingGivesNull) {
    records.add("/Picture/A");
    EXPECT_EQ(dump({}, json), "null");
}

TEST_F(JsonDocumentTest, PathAskedForTwiceAppearsOnce) {
    records.add("/Picture/A").add("/Picture/B");
    EXPECT_THAT(properties({{"Picture", {"A", "*", "A"}}}, "Picture"), ElementsAre("A", "B"));
}

TEST_F(JsonDocumentTest, BothGettersAreCalledWithTheEmptyArgument) {
    records.answering("/Picture/A", argumentInBrackets, argumentInBrackets);
    EXPECT_EQ(property("Picture", "A")["Default"], "[]");
    EXPECT_EQ(property("Picture", "A")["Value"], "[]");
}

TEST_F(JsonDocumentTest, DefaultIsReadBeforeTheValue) {
    std::vector<std::string> order;
    const auto noting = [&order](const std::string& what) {
        return [&order, what](const std::string&) {
            order.push_back(what);
            return what;
        };
    };
    records.answering("/Picture/A", noting("value"), noting("default"));
    dump({{"Picture", {"A"}}}, json);
    EXPECT_THAT(order, ElementsAre("default", "value"));
}

TEST_F(JsonDocumentTest, EmptyFixedDefaultIsADefault) {
    records.answering("/Picture/A", argumentInBrackets, argumentInBrackets);
    std::get<fixedDefaultElement>(DeviceInfoManagerSeam::records()["/Picture/A"]) = std::string();
    EXPECT_EQ(property("Picture", "A")["Default"], "");
}

TEST_F(JsonDocumentTest, WhereTheDefaultComesFromIsLogged) {
    records.add("/Picture/A", "1", std::string("0")).add("/Picture/B", "1", boost::none);
    dump({{"Picture", {"A", "B"}}}, json);
    EXPECT_THAT(logText(), ElementsAre("4 GetDeviceInfo: GetDeviceInfo retDataFormat = [0]",
                                       "3 prepareDeviceInfoData: prepareDeviceInfoData",
                                       "3 m_getPropValue: There is fixed default value.",
                                       "3 m_getPropValue: There is NO fixed default value."));
}

TEST_F(JsonDocumentTest, LinesCarryTheManagersFile) {
    records.answering("/Picture/A", nullptr);
    dump({{"Picture", {"A", "Nothing"}}}, json);
    EXPECT_THAT(fake::logs(), Each(fake::LineIn("DeviceInfoManager.cpp", ::testing::_, ::testing::_,
                                                ::testing::_)));
}

class FailingJsonGetterTest : public JsonDocumentTest,
                              public ::testing::WithParamInterface<PropertyGetter> {};

TEST_P(FailingJsonGetterTest, DefaultThatCannotBeReadIsEmpty) {
    records.answering("/Picture/A", argumentInBrackets, GetParam()).add("/Picture/B", "1");
    const Json::Value root = parsed({{"Picture", {"*"}}});
    EXPECT_EQ(root["Picture"]["A"]["Default"], "");
    EXPECT_EQ(root["Picture"]["A"]["Value"], "[]");
    EXPECT_EQ(root["Picture"]["B"]["Value"], "1");
    EXPECT_THAT(linesOf(builder), Contains("5 Exception: caught"));
}

TEST_P(FailingJsonGetterTest, ValueThatCannotBeReadIsEmpty) {
    records.answering("/Picture/A", GetParam(), argumentInBrackets).add("/Picture/B", "1");
    const Json::Value root = parsed({{"Picture", {"*"}}});
    EXPECT_EQ(root["Picture"]["A"]["Default"], "[]");
    EXPECT_EQ(root["Picture"]["A"]["Value"], "");
    EXPECT_EQ(root["Picture"]["B"]["Value"], "1");
    EXPECT_THAT(linesOf(builder), Contains("5 Exception caught"));
}

INSTANTIATE_TEST_SUITE_P(Failures, FailingJsonGetterTest,
                         ::testing::Values(throwing(KLX::Exception("refused")),
                                           throwing(std::runtime_error("broken")), throwing(7),
                                           PropertyGetter()));

} // namespace
