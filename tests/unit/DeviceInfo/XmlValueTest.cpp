#include "Exception.h"
#include "ManagerTest.h"
#include "XmlText.h"

#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

const std::string noFixedDefault = "There is NO fixed default value.";

/** What a leaf's two attributes hold. */
class XmlValueTest : public ManagerTest {
protected:
    /** The leaf for a record at a path below the menu "A". */
    std::string leafOf(const PropertyAccessor& accessor, const std::string& path = "p") {
        use({{"/A/" + path, accessor}});
        const std::string inside = insideDevice(documentFor({{"A", {path}}}));
        const std::size_t begin = inside.find(" default=");
        return inside.substr(begin, inside.find("/>", begin) - begin);
    }
};

TEST_F(XmlValueTest, FixedDefaultIsUsedWithoutACall) {
    std::vector<std::string> asked;
    EXPECT_EQ(leafOf(recordWithDefault("fixed", answering("v"), answeringAndKeeping("", asked))),
              " default=\"fixed\" value=\"v\"");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(fake::messages(3), Not(Contains(noFixedDefault)));
}

TEST_F(XmlValueTest, EmptyFixedDefaultIsOneToo) {
    std::vector<std::string> asked;
    EXPECT_EQ(leafOf(recordWithDefault("", answering("v"), answeringAndKeeping("x", asked))),
              " default=\"\" value=\"v\"");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(fake::messages(3), Not(Contains(noFixedDefault)));
}

TEST_F(XmlValueTest, DefaultGetterIsAskedBeforeTheValueGetter) {
    std::vector<std::string> asked;
    const auto telling = [&asked](const std::string& name) {
        return [&asked, name](const std::string& argument) {
            asked.push_back(name + "(" + argument + ")");
            return name;
        };
    };
    EXPECT_EQ(leafOf(record(telling("value"), telling("default"))),
              " default=\"default\" value=\"value\"");
    EXPECT_THAT(asked, ElementsAre("default()", "value()"));
    EXPECT_THAT(fake::logs(), Contains(managerLine(3, "m_getPropValue", noFixedDefault)));
}

TEST_F(XmlValueTest, BothAttributesAreThereWhenEmpty) {
    EXPECT_EQ(leafOf(record(answering(""), answering(""))), " default=\"\" value=\"\"");
}

TEST_F(XmlValueTest, LibraryExceptionOfADefaultGetterIsLoggedWithItsText) {
    EXPECT_EQ(leafOf(record(answering("v"), throwing(KLX::Exception("no default")))),
              " default=\"\" value=\"v\"");
    EXPECT_THAT(fake::logs(), Contains(managerLine(5, "m_getPropValue", "Exception: no default")));
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: no default"));
}

TEST_F(XmlValueTest, EmptyDefaultGetterIsLoggedAsABadCall) {
    EXPECT_EQ(leafOf(record(answering("v"), nullptr)), " default=\"\" value=\"v\"");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: bad_function_call"));
}

TEST_F(XmlValueTest, OtherExceptionsOfADefaultGetterAreLoggedWithoutAText) {
    EXPECT_EQ(leafOf(record(answering("v"), throwing(std::runtime_error("untold")))),
              " default=\"\" value=\"v\"");
    EXPECT_EQ(leafOf(record(answering("v"), throwing(5))), " default=\"\" value=\"v\"");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: ", "Exception: "));
}

TEST_F(XmlValueTest, LibraryExceptionOfAValueGetterIsLoggedWithItsText) {
    EXPECT_EQ(leafOf(recordWithDefault("d", throwing(KLX::Exception("no value")))),
              " default=\"d\" value=\"\"");
    EXPECT_THAT(fake::logs(), Contains(managerLine(5, "m_getPropValue", "Exception: no value")));
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: no value"));
}

TEST_F(XmlValueTest, EmptyValueGetterIsLoggedAsABadCall) {
    EXPECT_EQ(leafOf(recordWithDefault("d", nullptr)), " default=\"d\" value=\"\"");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: bad_function_call"));
}

TEST_F(XmlValueTest, OtherExceptionsOfAValueGetterAreLoggedWithoutAText) {
    EXPECT_EQ(leafOf(recordWithDefault("d", throwing(std::runtime_error("untold")))),
              " default=\"d\" value=\"\"");
    EXPECT_EQ(leafOf(recordWithDefault("d", throwing(5))), " default=\"d\" value=\"\"");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: ", "Exception: "));
}

TEST_F(XmlValueTest, ThrowingGettersCostTheirOwnValuesOnly) {
    use({{"/A/1", record(throwing(1), throwing(1))},
         {"/A/2", recordWithDefault("d", answering("v"))}});
    EXPECT_EQ(insideDevice(documentFor({{"A", {"*"}}})),
              "    <menu name=\"A\">\n"
              "      <property name=\"1\" default=\"\" value=\"\"/>\n"
              "      <property name=\"2\" default=\"d\" value=\"v\"/>\n"
              "    </menu>\n");
}

/** What the functions of a source's record are called with. */
class XmlSourceTest : public XmlValueTest {
protected:
    /** What the getters are called with for a path, default first. */
    std::vector<std::string> argumentsFor(const std::string& path) {
        std::vector<std::string> asked;
        leafOf(record(answeringAndKeeping("v", asked), answeringAndKeeping("d", asked)), path);
        return asked;
    }
};

TEST_F(XmlSourceTest, AreTheNumbersOfTheKey) {
    EXPECT_THAT(argumentsFor("Source_Connect/HDMI1"), ElementsAre("1", "1"));
    EXPECT_THAT(argumentsFor("x/Source_Connect/HDMI12"), ElementsAre("12", "12"));
}

TEST_F(XmlSourceTest, AreTakenFromTheWholeKey) {
    EXPECT_THAT(argumentsFor("2/Source_Connect/HDMI1"),
                ElementsAre("2/Source_Connect/HDMI1", "2/Source_Connect/HDMI1"));
}

TEST_F(XmlSourceTest, AreEmptyWithoutTheSlash) {
    EXPECT_THAT(argumentsFor("Source_Connect"), ElementsAre("", ""));
    EXPECT_THAT(argumentsFor("Source_Connected/HDMI1"), ElementsAre("", ""));
    EXPECT_THAT(argumentsFor("Source/HDMI1"), ElementsAre("", ""));
}

TEST_F(XmlSourceTest, CannotBeWorkedOutFromAKeyWithoutADigit) {
    std::vector<std::string> asked;
    EXPECT_EQ(
        leafOf(recordWithDefault("0", answeringAndKeeping("v", asked)), "Source_Connect/HDMI"),
        " default=\"0\" value=\"\"");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: "));
    EXPECT_THAT(fake::logs(), Contains(managerLine(5, "m_getPropValue", "Exception: ")));
}

TEST_F(XmlSourceTest, CannotBeWorkedOutForTheDefaultGetterEither) {
    std::vector<std::string> asked;
    EXPECT_EQ(leafOf(record(answering("v"), answeringAndKeeping("d", asked)), "Source_Connect/USB"),
              " default=\"\" value=\"\"");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: ", "Exception: "));
}

TEST_F(XmlSourceTest, WithoutADigitDoNotCostTheOtherProperties) {
    use({{"/Input/Source_Connect/AV", recordWithDefault("0", answering("v"))},
         {"/Input/Source_Connect/HDMI1", recordWithDefault("0", answering("v"))}});
    EXPECT_EQ(insideDevice(documentFor({{"Input", {"*"}}})),
              "    <menu name=\"Input\">\n"
              "      <property name=\"Source_Connect\">\n"
              "        <property name=\"AV\" default=\"0\" value=\"\"/>\n"
              "        <property name=\"HDMI1\" default=\"0\" value=\"v\"/>\n"
              "      </property>\n"
              "    </menu>\n");
}

} // namespace
