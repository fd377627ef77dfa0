#include "MemberBinding.h"
#include "PropertyCatalogue.h"

std::vector<PropertyRow> inputRows() {
    // Asked with the empty argument, or with the key's digits for the XML document.
    const PropertyBinding sourceStatus =
        readOnly({"port state", "memory/sysman/"}, &DeviceInfoInput::getInputDeviceStatus)
            .withDefault("0");
    return {
        {"/Input/Source_Connect/HDMI", sourceStatus},
        {"/Input/Source_Connect/AV", sourceStatus},
        {"/Input/Source_Connect/COMP", sourceStatus},
        {"/Input/Source_Connect/SCART", sourceStatus},
        {"/Input/Source_Connect/USB", sourceStatus},
        {"/Input/Source",
         readWrite({"source control", "GetCurrentSourceInfo"}, &DeviceInfoInput::getSourceList,
                   &DeviceInfoInput::setSourceList)
             .answeringDefault("0")},
        {"/Input/HDMI_Vendor", hdmiInfo(hdmiVendor).withDefault("")},
        {"/Input/HDMI_Product", hdmiInfo(hdmiProduct).withDefault("")},
    };
}
