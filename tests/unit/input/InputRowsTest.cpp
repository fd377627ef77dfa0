#include "DeviceProperty.h"
#include "InputTest.h"

#include <boost/optional.hpp>

using ::testing::Contains;
using ::testing::IsEmpty;

namespace {

constexpr auto noFixedDefault = "(none)";

/// A row as the menu has it: what its getter and its setter call.
struct Row {
    const char* path;
    const char* fixedDefault;
    const char* readCall;
    const char* writeCall; ///< "" for read-only rows
    bool flag;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.path;
}

constexpr auto portOfArgument = "vconf_get_int(\"memory/sysman/av7\")";

constexpr Row rows[] = {
    {"/Input/Source_Connect/HDMI", "0", portOfArgument, "", false},
    {"/Input/Source_Connect/AV", "0", portOfArgument, "", false},
    {"/Input/Source_Connect/COMP", "0", portOfArgument, "", false},
    {"/Input/Source_Connect/SCART", "0", portOfArgument, "", false},
    {"/Input/Source_Connect/USB", "0", portOfArgument, "", false},
    {"/Input/Source", noFixedDefault, "SourceControl.GetCurrentSourceInfo()",
     "SourceControl.ChangeSource(1, \"NoAppId\")", true},
    {"/Input/HDMI_Vendor", "", "v4l2_open(\"/dev/video21\", 2050)", "", false},
    {"/Input/HDMI_Product", "", "v4l2_open(\"/dev/video21\", 2050)", "", false},
    {"/General/External Device Manager/Cordix+(HDMI-CEC)", "1", "cec_is_enable()",
     "cec_set_enable(1)", false},
};

class InputRowsTest : public InputTest, public ::testing::WithParamInterface<Row> {
protected:
    InputRowsTest() {
        CDeviceProperty::GetInstance()->createPropertyAccessor(m_records);
        scene.source(13).hdmi("vendor", "product").cec(1);
        fake::clearHistory();
    }

    const PropertyAccessor& record() const { return m_records.at(GetParam().path); }

private:
    PropertyAccessorMap m_records;
};

TEST_P(InputRowsTest, ReadsThroughItsAccessor) {
    std::get<valueGetterElement>(record())("AV7");
    EXPECT_THAT(fake::calls(), Contains(GetParam().readCall));
}

TEST_P(InputRowsTest, CarriesItsDefaultAndFlag) {
    const auto& fixedDefault = std::get<fixedDefaultElement>(record());
    EXPECT_EQ(fixedDefault.value_or(noFixedDefault), GetParam().fixedDefault);
    EXPECT_EQ(std::get<flagElement>(record()), GetParam().flag);
}

TEST_P(InputRowsTest, WritesThroughItsAccessorOrNotAtAll) {
    std::get<setterElement>(record())("1");
    if (std::string(GetParam().writeCall).empty()) {
        EXPECT_THAT(fake::calls(), IsEmpty());
    } else {
        EXPECT_THAT(fake::calls(), Contains(GetParam().writeCall));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, InputRowsTest, ::testing::ValuesIn(rows));

class InputRowTest : public InputTest {
protected:
    InputRowTest() {
        CDeviceProperty::GetInstance()->createPropertyAccessor(records);
        fake::clearHistory();
    }

    PropertyAccessorMap records;
};

TEST_F(InputRowTest, SourceHasADefaultGetterThatAsksNobody) {
    EXPECT_EQ(std::get<defaultGetterElement>(records.at("/Input/Source"))(""), "0");
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(InputRowTest, VendorAndProductAreToldApart) {
    scene.source(13).hdmi("vendor", "product");
    EXPECT_EQ(std::get<valueGetterElement>(records.at("/Input/HDMI_Vendor"))(""), "vendor");
    EXPECT_EQ(std::get<valueGetterElement>(records.at("/Input/HDMI_Product"))(""), "product");
}

} // namespace
