#include "DeviceProperty.h"
#include "Exception.h"
#include "ManagerTest.h"

#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ManagerSetTest : public ManagerTest {
protected:
    /** Sets a property; the operation has to succeed. */
    void set(const std::string& menu, const std::string& property, const std::string& value) {
        EXPECT_TRUE(CDeviceInfoManager::SetDevicePropertyValue(menu, property, value));
    }

    /** Sets "/Picture/Mode", whose setter throws the exception. */
    template <class E>
    void setThrowing(E exception) {
        use({{"/Picture/Mode", recordSetBy([exception](const std::string&) { throw exception; })}});
        set("Picture", "Mode", "1");
    }
};

TEST_F(ManagerSetTest, CallsTheSetterOnceWithTheValue) {
    std::vector<std::string> values;
    use({{"/Picture/Backlight", recordSetBy(keeping(values))}});
    set("Picture", "Backlight", "35");
    EXPECT_THAT(values, ElementsAre("35"));
    EXPECT_THAT(fake::logs(), ElementsAre(writeLine("Picture", "Backlight", "35"),
                                          keyLine("/Picture/Backlight", "35")));
}

TEST_F(ManagerSetTest, CallsNoGetter) {
    std::vector<std::string> gotten;
    std::vector<std::string> set;
    use({{"/A/b", PropertyAccessor(answeringAndKeeping("", gotten), answeringAndKeeping("", gotten),
                                   boost::none, keeping(set), true)}});
    CDeviceInfoManager::SetDevicePropertyValue("A", "b", "");
    EXPECT_THAT(gotten, IsEmpty());
    EXPECT_THAT(set, ElementsAre(""));
}

TEST_F(ManagerSetTest, LooksAMenuWithSlashesUpUnsplit) {
    std::vector<std::string> values;
    use({{"/General & Privacy/Accessibility/Caption Settings/Caption",
          recordSetBy(keeping(values))}});
    set("General & Privacy/Accessibility", "Caption Settings/Caption", "1");
    EXPECT_THAT(values, ElementsAre("1"));
}

TEST_F(ManagerSetTest, LeavesTheBytesOfAValueUntouched) {
    const std::string bytes("\x01\xFF<&\n\0end", 9);
    std::vector<std::string> values;
    use({{"/A/b", recordSetBy(keeping(values))}});
    set("A", "b", bytes);
    EXPECT_THAT(values, ElementsAre(bytes));
}

TEST_F(ManagerSetTest, UnknownPathIsOnlyLogged) {
    use({});
    set("Picture", "Nothing", "1");
    EXPECT_THAT(fake::logs(),
                ElementsAre(writeLine("Picture", "Nothing", "1"), keyLine("/Picture/Nothing", "1"),
                            managerLine(4, "propertySet", "menuID [/Picture/Nothing] not found")));
}

TEST_F(ManagerSetTest, UsbDeviceWithoutARecordIsAnUnknownPath) {
    use({});
    set("Input", "Source_Connect/USB1/vendor", "1");
    EXPECT_THAT(fake::logs(),
                Contains(managerLine(4, "propertySet",
                                     "menuID [/Input/Source_Connect/USB1/vendor] not found")));
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(ManagerSetTest, EmptyNamesAreAnUnknownKeyOfTwoSlashes) {
    use({});
    set("", "", "");
    EXPECT_THAT(fake::logs(), Contains(keyLine("//", "")));
    EXPECT_THAT(fake::logs(), Contains(managerLine(4, "propertySet", "menuID [//] not found")));
}

TEST_F(ManagerSetTest, ReadOnlyPropertyTakesAnyValueAndDoesNothing) {
    use({{"/SetInformation/DUID", recordSetBy(emptySetter)}});
    set("SetInformation", "DUID", "another");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::messages(5), IsEmpty());
    EXPECT_THAT(fake::messages(6), IsEmpty());
}

TEST_F(ManagerSetTest, StandardExceptionOfASetterIsLoggedWithItsText) {
    setThrowing(std::runtime_error("refused"));
    EXPECT_THAT(fake::logs(), Contains(managerLine(5, "propertySet",
                                                   "mapKeyID=[/Picture/Mode] exception: "
                                                   "[refused]")));
}

TEST_F(ManagerSetTest, LibraryExceptionOfASetterIsLoggedWithItsText) {
    setThrowing(KLX::Exception("refused"));
    EXPECT_THAT(fake::messages(5), ElementsAre("mapKeyID=[/Picture/Mode] exception: [refused]"));
}

TEST_F(ManagerSetTest, OtherExceptionOfASetterIsAnError) {
    setThrowing(5);
    EXPECT_THAT(fake::logs(),
                Contains(managerLine(6, "propertySet",
                                     "Exception in propertySetter mapKeyID=[/Picture/Mode]")));
}

TEST_F(ManagerSetTest, EmptySetterIsLoggedAsABadCall) {
    use({{"/Picture/Mode", recordSetBy(nullptr)}});
    set("Picture", "Mode", "1");
    EXPECT_THAT(fake::messages(5),
                ElementsAre("mapKeyID=[/Picture/Mode] exception: [bad_function_call]"));
}

/** Failures between entry and return that are not the setter's. */
class ManagerSetFailureTest : public ManagerSetTest {
protected:
    template <class E>
    bool setWhileALineThrows(E exception) {
        use({{"/A/b", recordSetBy(emptySetter)}});
        throwAtLine("mapKeyID=[/A/b] value=[1]", exception);
        return CDeviceInfoManager::SetDevicePropertyValue("A", "b", "1");
    }
};

TEST_F(ManagerSetFailureTest, OfAStandardKindIsLoggedWithItsText) {
    EXPECT_FALSE(setWhileALineThrows(std::runtime_error("broken")));
    EXPECT_FALSE(setWhileALineThrows(KLX::Exception("broken as well")));
    EXPECT_THAT(fake::messages(5),
                ElementsAre("exception: [broken]", "exception: [broken as well]"));
    EXPECT_THAT(fake::logs(),
                Contains(managerLine(5, "SetDevicePropertyValue", "exception: [broken]")));
}

TEST_F(ManagerSetFailureTest, OfAnotherKindIsLoggedWithoutAText) {
    EXPECT_FALSE(setWhileALineThrows(5));
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception in SetDevicePropertyValue"));
    EXPECT_THAT(fake::logs(), Contains(managerLine(5, "SetDevicePropertyValue",
                                                   "Exception in SetDevicePropertyValue")));
}

} // namespace
