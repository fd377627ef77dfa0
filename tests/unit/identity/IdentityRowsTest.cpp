#include "CatalogueRow.h"
#include "Machine.h"
#include "PropertyCatalogue.h"

namespace fake = klx::fake;

using ::testing::ElementsAreArray;

namespace {

/** A text of the system information. */
CatalogueRow textRow(const char* path, const char* call, const char* text) {
    return row(path, flagClear).reads({call}, text).fixedDefault("");
}

/** A number of a service with its fixed default. */
CatalogueRow numberRow(const char* path, const char* call, const char* number,
                       const char* fixedDefault) {
    return row(path, flagClear).reads({call}, number).fixedDefault(fixedDefault);
}

/** Identity, factory and system information, in storing order. */
std::vector<CatalogueRow> identityRows() {
    return {
        textRow("/SetInformation/Firmware_Version", "system_info_get_value_string(128)", "T128"),
        textRow("/SetInformation/SerialNumber", "system_info_get_value_string(187)", "T187"),
        textRow("/SetInformation/DUID", "vconf_get_str(\"db/comss/hwduid\")", "BDCM5RN4"),
        textRow("/SetInformation/ProductYear",
                "system_info_get_custom_int(\"com.velmora/featureconf/product.tv_year\")", "2021"),
        textRow("/SetInformation/LumoraVersion", "appserver_get_app_info(\"10140000000\")",
                "5.0.1"),
        row("/SetInformation/ProductType", flagClear)
            .reads({"system_info_get_custom_int(\"com.velmora/featureconf/"
                    "product.product_type\")"},
                   "3"),
        textRow("/SetInformation/LocalSet", "system_info_get_value_string(90)", "T90"),
        textRow("/SetInformation/Release_Date", "system_info_get_value_string(8)", "T8"),
        row("/SetInformation/Watchdog_Count", flagClear)
            .reads({"PowerControl.getInstance()", "PowerControl.getWatchdogCount()"}, "12")
            .fixedDefault("0"),
        textRow("/SetInformation/ESN", "esn_get(16384)", "NFANDROID2"),
        textRow("/SetInformation/Date_Of_Purchase", "system_settings_get_value_string(10001)",
                "2024-02-29"),
        numberRow("/SetInformation/WiFi No Detection Count", "system_info_get_value_int(934)",
                  "934", "0"),
        numberRow("/SetInformation/WiFi Detachment Count", "system_info_get_value_int(933)", "933",
                  "0"),
        numberRow("/SetInformation/BT No Detection Count", "system_info_get_value_int(858)", "858",
                  "0"),
        numberRow("/SetInformation/BT Detachment Count", "system_info_get_value_int(856)", "856",
                  "0"),
        row("/SetInformation/SNRLevel", flagClear)
            .reads(
                {"CreateTunerControl(1, 0)", "TunerControl.GetSNRLevel()", "Destroy(TunerControl)"},
                "25.34 dB")
            .fixedDefault(""),
        textRow("/SetInformation/HubSite", "appserver_get_debug_info()", "prd-eu"),
        row("/SetInformation/Vcc Fail Count", flagClear)
            .reads({"PowerControl.getInstance()", "PowerControl.getPowerFailCount()"}, "4")
            .fixedDefault("0"),
        numberRow("/SetInformation/AutoReset_Count", "runtime_info_get_value_int(10026)", "10026",
                  "0"),
        numberRow("/SetInformation/FRC3D ER Count", "runtime_info_get_value_int(10036)", "10036",
                  "0"),
        numberRow("/SetInformation/Fan Error Count", "runtime_info_get_value_int(10037)", "10037",
                  "0"),
        numberRow("/SetInformation/Serdes Error Count", "system_info_get_value_int(910)", "910",
                  "0"),
        numberRow("/SetInformation/Serdes Reset Count", "system_info_get_value_int(911)", "911",
                  "0"),
        numberRow("/SetInformation/Camera ER Count", "system_info_get_value_int(920)", "920", "0"),
        numberRow("/Factory/Panel_Time", "system_info_get_value_int(905)", "905", "0"),
        numberRow("/Factory/Serial_Log", "system_info_get_value_int(912)", "912", ""),
        numberRow("/Factory/Region_Kind", "system_info_get_value_int(127)", "127", ""),
        numberRow("/Factory/RS232_Jack", "system_info_get_value_int(909)", "909", ""),
        numberRow("/Factory/Wifi Vendor Type", "system_info_get_value_int(281)", "281", ""),
        numberRow("/Factory/System Tuner Type", "system_info_get_value_int(131)", "131", ""),
        row("/Factory/Language", flagClear)
            .reads({"system_settings_get_value_string(13)"}, "de_DE")
            .fixedDefault("")
            .writes("fr_FR", {"system_settings_set_value_string(13, \"fr_FR\")"}),
        textRow("/Factory/Wifi Version", "system_info_get_value_string(216)", "T216"),
        textRow("/Factory/Rexo Version", "system_info_get_value_string(209)", "T209"),
        textRow("/Factory/Submicom Version", "system_info_get_value_string(133)", "T133"),
        row("/Factory/Image Type", flagClear).reads({}, "Perf Image").fixedDefault(""),
        textRow("/Factory/EManual Version", "system_info_get_value_string(138)", "T138"),
        textRow("/Factory/Type", "system_info_get_value_string(74)", "T74"),
        textRow("/Factory/Model", "system_info_get_value_string(292)", "T292"),
        textRow("/Factory/OrielServerType", "system_info_get_value_int(126)", "Operating"),
        row("/Factory/TCON_PMIC_ErrorCount", flagClear)
            .reads({"vconf_get_int(\"db/frc_tcon/pmic_error_count\")"}, "5")
            .readsDefault({"get_vconf_key_default_value(\"db/frc_tcon/pmic_error_count\", 0)"}, "6")
            .writes("7", {"vconf_set_int(\"db/frc_tcon/pmic_error_count\", 7)"}),
        row("/SystemInformation/LumoraWidgetAppUsage", flagClear)
            .reads({"appserver_get_used_memory()"}, "123456 kB")
            .readsDefault({}, ""),
    };
}

/** A set on which every value can be had. Numbers read as their key, texts as "T" and their key. */
class IdentityRowTest : public CatalogueRowTest {
protected:
    IdentityRowTest() {
        for (const int key : {934, 933, 858, 856, 910, 911, 920, 905, 912, 127, 909, 281, 131}) {
            scene.systemInfo(key, key);
        }
        for (const int key : {128, 187, 90, 8, 216, 209, 133, 138, 74, 292}) {
            scene.systemInfo(key, "T" + std::to_string(key));
        }
        for (const int key : {10026, 10036, 10037}) {
            scene.runtimeInfo(key, key);
        }
        scene.systemInfo(126, 0).snr(2534).powerFailCount(4).watchdogCount(12);
        scene.systemSetting(10001, "2024-02-29").systemSetting(13, "de_DE");
        scene.feature("com.velmora/featureconf/product.product_type", 3);
        scene.feature("com.velmora/featureconf/product.tv_year", 21);
        scene.store("db/comss/hwduid", "BDCM5RN4").store("db/frc_tcon/pmic_error_count", 5);
        scene.storeDefault("db/frc_tcon/pmic_error_count", "6");
        scene.esn("NFANDROID2").appVersion("10140000000", "5.0.1").hubSite("prd-eu");
        scene.usedMemory("123456 kB");
        machine.files = {"/etc/perf"};
    }

    Machine machine;
};

TEST_P(IdentityRowTest, ReadsItsValue) {
    checkValue();
}

TEST_P(IdentityRowTest, KnowsItsDefault) {
    checkDefault();
}

TEST_P(IdentityRowTest, IsWrittenOrReadOnly) {
    checkWrite();
}

TEST_P(IdentityRowTest, CarriesItsFlag) {
    checkFlag();
}

INSTANTIATE_TEST_SUITE_P(Rows, IdentityRowTest, ::testing::ValuesIn(identityRows()), testNameOf);

TEST(IdentityRowsTest, AreAllThereAreInStoringOrder) {
    std::vector<std::string> paths;
    for (const PropertyRow& each : setInformationRows()) {
        paths.emplace_back(each.path);
    }
    EXPECT_THAT(paths, ElementsAreArray(pathsOf(identityRows())));
    EXPECT_EQ(paths.size(), 41U);
}

} // namespace
