#include "RowKinds.h"

using klx::fake::Scene;

namespace {

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

/** A call of the settings store with a key. */
std::string keyCall(const std::string& function, const std::string& key,
                    const std::string& further = "") {
    return function + "(" + quoted(key) + further + ")";
}

std::string defaultCall(const std::string& key, int type) {
    return keyCall("get_vconf_key_default_value", key, ", " + std::to_string(type));
}

std::string numberCall(const std::string& function, int number, const std::string& further = "") {
    return function + "(" + std::to_string(number) + further + ")";
}

/** The arguments of a library's reads and of its write. */
struct LibraryArguments {
    const char* stored;
    const char* byDefault;
    const char* write;
};

CatalogueRow libraryRow(const std::string& path, const std::string& name,
                        const LibraryArguments& arguments) {
    return row(path, flagSet)
        .given([name](Scene& scene) { scene.pelm(name, 5).pelmDefault(name, 6); })
        .reads({"pelm_get_" + name + arguments.stored}, "5")
        .readsDefault({"pelm_get_" + name + arguments.byDefault}, "6")
        .writes("7", {"pelm_set_" + name + arguments.write});
}

} // namespace

CatalogueRow integerKey(const std::string& path, const std::string& key, bool flag) {
    return row(path, flag)
        .given([key](Scene& scene) { scene.store(key, 5).storeDefault(key, "6"); })
        .reads({keyCall("vconf_get_int", key)}, "5")
        .readsDefault({defaultCall(key, 0)}, "6")
        .writes("7", {keyCall("vconf_set_int", key, ", 7")});
}

CatalogueRow flagKey(const std::string& path, const std::string& key) {
    return row(path, flagSet)
        .given([key](Scene& scene) { scene.store(key, true).storeDefault(key, "0"); })
        .reads({keyCall("vconf_get_bool", key)}, "1")
        .readsDefault({defaultCall(key, 1)}, "0")
        .writes("1", {keyCall("vconf_set_bool", key, ", 1")});
}

CatalogueRow textKey(const std::string& path, const std::string& key) {
    return row(path, flagSet)
        .given([key](Scene& scene) {
            scene.store(key, std::string("stored")).storeDefault(key, "default");
        })
        .reads({keyCall("vconf_get_str", key)}, "stored")
        .readsDefault({defaultCall(key, 2)}, "default")
        .writes("written", {keyCall("vconf_set_str", key, ", \"written\"")});
}

CatalogueRow systemSetting(const std::string& path, int number, const std::string& defaultKey) {
    return row(path, flagSet)
        .given([number, defaultKey](Scene& scene) {
            scene.runtimeInfo(number, 5).storeDefault(defaultKey, "6");
        })
        .reads({numberCall("runtime_info_get_value_int", number)}, "5")
        .readsDefault({defaultCall(defaultKey, 0)}, "6")
        .writes("7", {numberCall("system_settings_set_value_int", number, ", 7")});
}

CatalogueRow pictureControl(const std::string& path, const std::string& name) {
    return libraryRow(path, name, {"(1, 1)", "(1, 2)", "(0, 7, 1)"});
}

CatalogueRow soundStyleControl(const std::string& path, const std::string& name) {
    return libraryRow(path, name, {"(1)", "(2)", "(7, 1)"});
}

CatalogueRow energyControl(const std::string& path, const std::string& name) {
    return libraryRow(path, name, {"(1, 1)", "(1, 2)", "(0, 1, 7)"});
}

CatalogueRow gameModeControl(const std::string& path) {
    return libraryRow(path, "game_mode", {"(0, 1)", "(0, 2)", "(0, 1, 7)"});
}

CatalogueRow systemText(const std::string& path, int number) {
    const std::string text = "text " + std::to_string(number);
    return row(path, flagClear)
        .given([number, text](Scene& scene) { scene.systemInfo(number, text); })
        .reads({numberCall("system_info_get_value_string", number)}, text)
        .fixedDefault("");
}

CatalogueRow systemNumber(const std::string& path, int number, const std::string& fixedDefault) {
    return row(path, flagClear)
        .given([number](Scene& scene) { scene.systemInfo(number, number); })
        .reads({numberCall("system_info_get_value_int", number)}, std::to_string(number))
        .fixedDefault(fixedDefault);
}

CatalogueRow runtimeCounter(const std::string& path, int number) {
    return row(path, flagClear)
        .given([number](Scene& scene) { scene.runtimeInfo(number, number); })
        .reads({numberCall("runtime_info_get_value_int", number)}, std::to_string(number))
        .fixedDefault("0");
}

CatalogueRow connectionRow(const std::string& path, const std::string& call,
                           const std::string& value) {
    const auto ethernet = [](Scene& scene) {
        scene.connectionType(3).mac(3, "02:00:00:00:00:07");
        scene.currentProfile(klx::fake::Profile("home")
                                 .type(2)
                                 .ip("192.0.2.7")
                                 .subnetMask("255.255.255.0")
                                 .gateway("192.0.2.1")
                                 .dns("192.0.2.53", 1)
                                 .dns("192.0.2.54", 2)
                                 .ipConfig(4)
                                 .interfaceName("eth7"));
    };
    return row(path, flagClear)
        .given(ethernet)
        .reads({"connection_create()", "connection_get_current_profile(connection)",
                "connection_get_type(connection)", call, "connection_destroy(connection)"},
               value)
        .fixedDefault("");
}

CatalogueRow hdmiRow(const std::string& path, const std::string& value) {
    return row(path, flagClear)
        .given([](Scene& scene) { scene.source(13).hdmi("vendor", "product"); })
        .reads({"CreateSourceControl(1, 0)", "SourceControl.GetCurrentSourceInfo()",
                "Destroy(SourceControl)", "v4l2_open(\"/dev/video21\", 2050)",
                "v4l2_ioctl(video device, VIDIOC_G_EXT_CTRLS, 10485760, 10488235, 40, "
                "[3, 0 x 39])",
                "v4l2_close(video device)"},
               value)
        .fixedDefault("");
}
