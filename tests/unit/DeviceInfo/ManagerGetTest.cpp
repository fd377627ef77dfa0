#include "DeviceProperty.h"
#include "Exception.h"
#include "ManagerTest.h"

#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ManagerGetTest : public ManagerTest {
protected:
    /** Reads a property; the operation has to succeed. */
    std::string get(const std::string& menu, const std::string& property) {
        std::string value = "as it was";
        EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue(menu, property, value));
        return value;
    }

    /** Reads "/Picture/Mode", whose getter throws the exception. */
    template <class E>
    std::string getThrowing(E exception) {
        use({{"/Picture/Mode", record(throwing(exception))}});
        return get("Picture", "Mode");
    }
};

TEST_F(ManagerGetTest, GivesTheGettersText) {
    use({{"/Picture/Picture Mode", record(answering("Movie"))}});
    EXPECT_EQ(get("Picture", "Picture Mode"), "Movie");
    EXPECT_THAT(fake::logs(),
                ElementsAre(readLine("Picture", "Picture Mode"),
                            foundLine("Picture", "Picture Mode", "Movie"), gaveLine("Movie")));
}

TEST_F(ManagerGetTest, CallsTheValueGetterOnceWithAnEmptyText) {
    std::vector<std::string> values;
    std::vector<std::string> defaults;
    use({{"/Input/Source_Connect/HDMI1",
          record(answeringAndKeeping("1", values), answeringAndKeeping("0", defaults))}});
    get("Input", "Source_Connect/HDMI1");
    EXPECT_THAT(values, ElementsAre(""));
    EXPECT_THAT(defaults, IsEmpty());
}

TEST_F(ManagerGetTest, LooksAMenuWithSlashesUpUnsplit) {
    use({{"/General & Privacy/Accessibility/Caption Settings/Caption", record(answering("1"))}});
    EXPECT_EQ(get("General & Privacy/Accessibility", "Caption Settings/Caption"), "1");
}

TEST_F(ManagerGetTest, ComparesPathsAsBytes) {
    use({{"/A/b  c", record(answering("two blanks"))}, {"/A/B  c", record(answering("capital"))}});
    EXPECT_EQ(get("A", "b  c"), "two blanks");
    EXPECT_EQ(get("A", "B  c"), "capital");
    EXPECT_EQ(get("A", "b c"), "as it was");
}

TEST_F(ManagerGetTest, MayGiveAnEmptyText) {
    use({{"/Picture/Mode", record(answering(""))}});
    EXPECT_EQ(get("Picture", "Mode"), "");
    EXPECT_THAT(fake::logs(), Contains(gaveLine("")));
}

TEST_F(ManagerGetTest, LeavesTheBytesOfAValueUntouched) {
    const std::string bytes("\x01\xFF<&\n\0end", 9);
    use({{"/Picture/Mode", record(answering(bytes))}});
    EXPECT_EQ(get("Picture", "Mode"), bytes);
}

TEST_F(ManagerGetTest, UnknownPropertyLeavesTheOutputAlone) {
    use({});
    EXPECT_EQ(get("Picture", "Nothing"), "as it was");
    EXPECT_THAT(fake::logs(), ElementsAre(readLine("Picture", "Nothing"),
                                          managerLine(5, "m_getPropValue",
                                                      "key=[/Picture/Nothing] does not exist"),
                                          gaveLine("as it was")));
}

TEST_F(ManagerGetTest, EmptyNamesAreAnUnknownKeyOfTwoSlashes) {
    use({});
    EXPECT_EQ(get("", ""), "as it was");
    EXPECT_THAT(fake::logs(),
                Contains(managerLine(5, "m_getPropValue", "key=[//] does not exist")));
}

TEST_F(ManagerGetTest, ThrowingGetterGivesAnEmptyText) {
    EXPECT_EQ(getThrowing(KLX::Exception("no such mode")), "");
    EXPECT_THAT(fake::logs(), ElementsAre(readLine("Picture", "Mode"),
                                          managerLine(5, "m_getPropValue", "Exception caught"),
                                          foundLine("Picture", "Mode", ""), gaveLine("")));
}

TEST_F(ManagerGetTest, GetterMayThrowAnything) {
    EXPECT_EQ(getThrowing(std::runtime_error("standard")), "");
    EXPECT_EQ(getThrowing(5), "");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception caught", "Exception caught"));
}

TEST_F(ManagerGetTest, EmptyGetterGivesAnEmptyText) {
    use({{"/Picture/Mode", record(nullptr)}});
    EXPECT_EQ(get("Picture", "Mode"), "");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception caught"));
}

/** Failures between entry and return that are not the getter's. */
class ManagerGetFailureTest : public ManagerGetTest {
protected:
    ManagerGetFailureTest() { use({{"/Picture/Mode", record(answering("Movie"))}}); }

    template <class E>
    bool getWhileALineThrows(E exception) {
        throwAtLine("propertyValue = [Movie]", exception);
        std::string value;
        return CDeviceInfoManager::GetDevicePropertyValue("Picture", "Mode", value);
    }
};

TEST_F(ManagerGetFailureTest, OfTheLibrarysKindIsLoggedWithItsText) {
    EXPECT_FALSE(getWhileALineThrows(KLX::Exception("broken")));
    EXPECT_EQ(fake::messages(5), std::vector<std::string>{"exception occured =[broken]"});
    EXPECT_THAT(fake::logs(),
                Contains(managerLine(5, "GetDevicePropertyValue", "exception occured =[broken]")));
}

TEST_F(ManagerGetFailureTest, OfAnotherKindIsUnknown) {
    EXPECT_FALSE(getWhileALineThrows(std::runtime_error("broken")));
    EXPECT_FALSE(getWhileALineThrows(5));
    EXPECT_THAT(fake::messages(5),
                ElementsAre("UNKNOWN exception occured", "UNKNOWN exception occured"));
    EXPECT_THAT(fake::logs(),
                Contains(managerLine(5, "GetDevicePropertyValue", "UNKNOWN exception occured")));
}

} // namespace
