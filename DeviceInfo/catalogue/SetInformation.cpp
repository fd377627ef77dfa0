#include "MemberBinding.h"
#include "PropertyCatalogue.h"

std::vector<PropertyRow> setInformationRows() {
    return {
        {"/SetInformation/Firmware_Version", systemText(128).withDefault("")},
        {"/SetInformation/SerialNumber", systemText(187).withDefault("")},
        {"/SetInformation/DUID",
         readOnly({"text setting", "db/comss/hwduid"}, &DeviceInfoGeneral::getDUID)
             .withDefault("")},
        {"/SetInformation/ProductYear",
         readOnly({"feature", "com.velmora/featureconf/product.tv_year"},
                  &DeviceInfoGeneral::getProductYear)
             .withDefault("")},
        {"/SetInformation/LumoraVersion", readOnly({"application server", "appserver_get_app_info"},
                                                   &DeviceInfoGeneral::getLumoraVersion)
                                              .withDefault("")},
        {"/SetInformation/ProductType",
         readOnly({"feature", "com.velmora/featureconf/product.product_type"},
                  &DeviceInfoGeneral::getProductType)},
        {"/SetInformation/LocalSet", systemText(90).withDefault("")},
        {"/SetInformation/Release_Date", systemText(8).withDefault("")},
        {"/SetInformation/Watchdog_Count",
         readOnly({"power control", "getWatchdogCount"}, &DeviceInfoGeneral::getWatchDogCount)
             .withDefault("0")},
        {"/SetInformation/ESN",
         readOnly({"ESN service", "esn_get"}, &DeviceInfoGeneral::getnESN).withDefault("")},
        {"/SetInformation/Date_Of_Purchase",
         readOnly({"system setting", "10001"}, &DeviceInfoGeneral::getDateOfPurchase)
             .withDefault("")},
        {"/SetInformation/WiFi No Detection Count", systemNumber(934).withDefault("0")},
        {"/SetInformation/WiFi Detachment Count", systemNumber(933).withDefault("0")},
        {"/SetInformation/BT No Detection Count", systemNumber(858).withDefault("0")},
        {"/SetInformation/BT Detachment Count", systemNumber(856).withDefault("0")},
        {"/SetInformation/SNRLevel",
         readOnly({"tuner control", "GetSNRLevel"}, &DeviceInfoGeneral::getSNRLevel)
             .withDefault("")},
        {"/SetInformation/HubSite", readOnly({"application server", "appserver_get_debug_info"},
                                             &DeviceInfoGeneral::getHubSite)
                                        .withDefault("")},
        {"/SetInformation/Vcc Fail Count",
         readOnly({"power control", "getPowerFailCount"}, &DeviceInfoGeneral::getVccFailCount)
             .withDefault("0")},
        {"/SetInformation/AutoReset_Count", runtimeCounter(10026).withDefault("0")},
        {"/SetInformation/FRC3D ER Count", runtimeCounter(10036).withDefault("0")},
        {"/SetInformation/Fan Error Count", runtimeCounter(10037).withDefault("0")},
        {"/SetInformation/Serdes Error Count", systemNumber(910).withDefault("0")},
        {"/SetInformation/Serdes Reset Count", systemNumber(911).withDefault("0")},
        {"/SetInformation/Camera ER Count", systemNumber(920).withDefault("0")},
        {"/Factory/Panel_Time", systemNumber(905).withDefault("0")},
        {"/Factory/Serial_Log", systemNumber(912).withDefault("")},
        {"/Factory/Region_Kind", systemNumber(127).withDefault("")},
        {"/Factory/RS232_Jack", systemNumber(909).withDefault("")},
        {"/Factory/Wifi Vendor Type", systemNumber(281).withDefault("")},
        {"/Factory/System Tuner Type", systemNumber(131).withDefault("")},
        {"/Factory/Language",
         readWrite({"system setting", "13"}, &factoryInfo::getLanguage, &factoryInfo::setLanguage)
             .withDefault("")
             .withFlagClear()},
        {"/Factory/Wifi Version", systemText(216).withDefault("")},
        {"/Factory/Rexo Version", systemText(209).withDefault("")},
        {"/Factory/Submicom Version", systemText(133).withDefault("")},
        {"/Factory/Image Type",
         readOnly({"image marker", "/etc/release, /etc/perf, /etc/debug"}, &factoryInfo::imageType)
             .withDefault("")},
        {"/Factory/EManual Version", systemText(138).withDefault("")},
        {"/Factory/Type", systemText(74).withDefault("")},
        {"/Factory/Model", systemText(292).withDefault("")},
        {"/Factory/OrielServerType",
         readOnly({"system information", "126"}, &factoryInfo::getServerType).withDefault("")},
        {"/Factory/TCON_PMIC_ErrorCount",
         setting("db/frc_tcon/pmic_error_count", integerValue).withFlagClear()},
        {"/SystemInformation/LumoraWidgetAppUsage",
         readOnly({"application server", "appserver_get_used_memory"},
                  &DeviceInfoGeneral::getSystemLumoraWidgetAppUsage)
             .answeringDefault("")},
    };
}
