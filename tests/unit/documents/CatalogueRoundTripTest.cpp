#include "DeviceProperty.h"
#include "DocumentsTest.h"

#include <cstdio>

namespace fake = klx::fake;
using ::testing::Gt;
using ::testing::SizeIs;

namespace {

const Request everything = {
    {"Broadcasting", {"*"}}, {"Connection", {"*"}},        {"Factory", {"*"}},
    {"General", {"*"}},      {"General & Privacy", {"*"}}, {"Input", {"*"}},
    {"Network", {"*"}},      {"Picture", {"*"}},           {"SetInformation", {"*"}},
    {"Sound", {"*"}},        {"Support", {"*"}},           {"SystemInformation", {"*"}}};

/** Texts of every kind that a property may take: text, tint, number or flag. */
const std::vector<std::string> changedTexts = {" \"a\" <b> & 'c' \xC3\xB1\n\t+()  ", "70/30", "1"};
const std::vector<std::string> resetTexts = {"", "50/50", "0"};

/** The library's whole catalogue over a platform that keeps what is written. */
class CatalogueRoundTripTest
    : public ::testing::Test,
      public ::testing::WithParamInterface<CDeviceInfoManager::DataFormatType> {
protected:
    CatalogueRoundTripTest() {
        CDeviceInfoManager::Initialize();
        joinWhatIsWrittenToWhatIsRead();
    }
    ~CatalogueRoundTripTest() override { DeviceInfoManagerSeam::uninstall(); }

    /** What a set keeps in one place and lets be read from another. */
    void joinWhatIsWrittenToWhatIsRead() {
        scene.onCall("system_settings_set_value_int", [this] {
            const std::string call = fake::callsTo("system_settings_set_value_int").back();
            int key = 0;
            int value = 0;
            std::sscanf(call.c_str(), "system_settings_set_value_int(%d, %d)", &key, &value);
            scene.runtimeInfo(key == 10008 ? 10010 : key, value);
        });
        scene.onCall("SettingsService.SetItemValue", [this] {
            const std::string call = fake::callsTo("SettingsService.SetItemValue").back();
            const bool enable = call.find(", true)") != std::string::npos;
            scene.settingsItem("autorun-multiview-rotating", enable ? 1 : 0);
        });
    }

    static std::vector<std::string> writablePaths() {
        std::vector<std::string> paths;
        for (const auto& [path, record] : DeviceInfoManagerSeam::records()) {
            const auto* const function =
                std::get<setterElement>(record).target<void (*)(const std::string&)>();
            if (function == nullptr || *function != &emptySetter) {
                paths.push_back(path);
            }
        }
        return paths;
    }

    static std::string valueOf(const std::string& path) {
        return std::get<valueGetterElement>(DeviceInfoManagerSeam::records().at(path))("");
    }

    /** Gives the property the first of the texts that it takes. */
    static void change(const std::string& path, const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            const std::size_t slash = path.find('/', 1);
            CDeviceInfoManager::SetDevicePropertyValue(path.substr(1, slash - 1),
                                                       path.substr(slash + 1), text);
            if (valueOf(path) == text) {
                return;
            }
        }
        ADD_FAILURE() << path << " takes none of the texts";
    }

    static std::map<std::string, std::string> writableValues() {
        std::map<std::string, std::string> values;
        for (const std::string& path : writablePaths()) {
            values[path] = valueOf(path);
        }
        return values;
    }

    static void changeAll(const std::vector<std::string>& texts) {
        for (const std::string& path : writablePaths()) {
            change(path, texts);
        }
    }

    static std::string dump() {
        std::string document;
        EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo(everything, document, "", GetParam()));
        return document;
    }

    fake::Scene scene;
};

TEST_P(CatalogueRoundTripTest, EveryWritablePropertyComesBack) {
    ASSERT_THAT(writablePaths(), SizeIs(Gt(60u)));
    changeAll(changedTexts);
    const std::string before = dump();
    const auto changed = writableValues();
    changeAll(resetTexts);
    for (const auto& [path, value] : writableValues()) {
        ASSERT_NE(value, changed.at(path)) << path;
    }
    EXPECT_TRUE(CDeviceInfoManager::SetDeviceInfo(before, GetParam()));
    EXPECT_EQ(writableValues(), changed);
    EXPECT_EQ(dump(), before);
}

INSTANTIATE_TEST_SUITE_P(Formats, CatalogueRoundTripTest, ::testing::Values(json, xml),
                         [](const auto& test) { return nameOf(test.param); });

} // namespace
