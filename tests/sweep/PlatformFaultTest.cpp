#include "SweepTest.h"

#include <map>
#include <optional>
#include <set>

using namespace klx::test;
using ::testing::AnyOf;

namespace {

constexpr int failure = -1;

/** One of the calls of a run: the function and which of the run's calls to it this is. */
struct PlannedFault {
    std::string function;
    int nth;
};

std::vector<PlannedFault> faultsFor(const std::vector<std::string>& calls) {
    std::vector<PlannedFault> faults;
    std::map<std::string, int> counts;
    for (const std::string& call : calls) {
        const std::string function = call.substr(0, call.find('('));
        // This one answers yes or no, and neither is a failure.
        if (function != "connection_profile_iterator_has_next") {
            faults.push_back({function, ++counts[function]});
        }
    }
    return faults;
}

/** What reads as before although one of these fails. */
bool isWithoutEffect(const std::string& function) {
    static const std::set<std::string> functions = {"Destroy", "cec_init_proxy", "cec_close_proxy",
                                                    "v4l2_close", "connection_destroy",
                                                    "connection_destroy_profile_iterator",
                                                    // The first registered profile serves instead.
                                                    "connection_get_current_profile",
                                                    // The profile that was being looked at serves.
                                                    "connection_profile_get_type"};
    return functions.count(function) != 0;
}

bool leavesNoProfile(const std::string& function) {
    return function == "connection_get_profile_iterator" ||
           function == "connection_profile_iterator_next";
}

/** What a value or default reads as when a call failed; nothing when it does not depend on it. */
std::optional<std::string> answerAfter(const std::string& function, const std::string& path) {
    static const std::map<std::string, std::string> answers = {
        {"vconf_get_int", "0"},
        {"vconf_get_bool", "0"},
        {"runtime_info_get_value_int", "0"},
        {"pelm_get_motion_lighting", "0"},
        {"pelm_get_video_gray_onoff", "0"},
        {"sound_manager_get_speaker_selection", "0"},
        {"util_get_wakeOnMobile_mode", "0"},
        {"wifi_get_enable_kq", "0"},
        // What the service answers is the value.
        {"cec_is_enable", "-1"},
        {"SettingsService.GetItemValue", "-1"},
        {"connection_profile_get_ip_config_type", "None"},
        {"pelm_get_color_tint", "100/0"}};
    const bool ofTheConnection = path == "/Network/MAC" || path == "/Network/Type";
    if (isWithoutEffect(function) || (leavesNoProfile(function) && ofTheConnection)) {
        return std::nullopt;
    }
    if (leavesNoProfile(function) && path == "/Network/IPMode") {
        return "None";
    }
    if (path == "/Factory/OrielServerType") {
        return "Development";
    }
    const auto found = answers.find(function);
    return found != answers.end() ? found->second : "";
}

/** Calls whose failure changes nothing but the outcome, or is told at debug priority only. */
bool mayFailUntold(const std::string& function) {
    static const std::set<std::string> untold = {"CreateSourceControl",
                                                 "SourceControl.ChangeSource",
                                                 "Destroy",
                                                 "SettingsService.Get",
                                                 "SettingsService.SetItemValue",
                                                 "cec_init_proxy",
                                                 "cec_close_proxy",
                                                 "pelm_set_video_gray_onoff",
                                                 "system_settings_get_value_int",
                                                 "util_set_wakeOnMobile_mode",
                                                 "wifi_set_enable_kq"};
    return untold.count(function) != 0;
}

const std::set<std::string>& writablePaths() {
    static const std::set<std::string> paths = [] {
        std::vector<PropertyDescription> properties;
        CDeviceInfoManager::DescribeProperties(properties);
        std::set<std::string> writable;
        for (const PropertyDescription& property : properties) {
            if (property.isWritable) {
                writable.insert(property.path);
            }
        }
        return writable;
    }();
    return paths;
}

/** Whether the operation on that property needs the platform at all. */
bool asksThePlatform(const Operation& operation, const std::string& path) {
    if (operation.writes) {
        return writablePaths().count(path) != 0;
    }
    // A document names the ports and tells no more of them.
    const bool isPort = path.find("/Input/Source_Connect/") == 0;
    return path != "/Factory/Image Type" && (std::string(operation.name) == "Get" || !isPort);
}

class PlatformFaultTest : public SweepTest {
protected:
    void sweepAll() {
        for (const std::string& path : allPaths()) {
            SCOPED_TRACE(path);
            sweep(path);
        }
    }

private:
    void sweep(const std::string& path) {
        const std::string before = valueOf(path);
        const Observed good = observe(GetParam().prepare(path));
        const std::string wanted = valueOf(path);
        change(path, before);
        const std::vector<PlannedFault> faults = faultsFor(good.calls);
        EXPECT_EQ(!faults.empty(), asksThePlatform(GetParam(), path));
        for (const PlannedFault& fault : faults) {
            SCOPED_TRACE(fault.function + ", call " + std::to_string(fault.nth));
            const PreparedCall call = GetParam().prepare(path);
            scene.scene().failNth(fault.function, fault.nth, failure);
            const Observed faulty = observe(call);
            EXPECT_TRUE(faulty.answer.done);
            expectHandlesInOrder();
            if (GetParam().writes) {
                const std::string now = valueOf(path);
                EXPECT_THAT(now, AnyOf(before, wanted));
                EXPECT_TRUE(now == wanted || faulty.failures() > good.failures() ||
                            mayFailUntold(fault.function));
            } else {
                expectText(faulty.answer.text, good.answer.text, answerAfter(fault.function, path));
            }
            change(path, before);
        }
    }

    /** A value, or a document of one property, of whose texts one fell victim to the fault. */
    static void expectText(const std::string& text, const std::string& good,
                           const std::optional<std::string>& answer) {
        if (!answer) {
            EXPECT_EQ(text, good);
        } else if (std::string(GetParam().name) == "Get") {
            EXPECT_EQ(text, *answer);
        } else {
            expectEntry(entriesOf(text).begin()->second, entriesOf(good).begin()->second, *answer);
        }
    }

    static void expectEntry(const Entry& entry, const Entry& good, const std::string& answer) {
        const Entry withoutDefault{answer, good.value};
        const Entry withoutValue{good.defaultText, answer};
        EXPECT_THAT(entry, AnyOf(withoutDefault, withoutValue));
    }
};

TEST_P(PlatformFaultTest, IsAnsweredWhicheverCallFails) {
    sweepAll();
}

TEST_P(PlatformFaultTest, IsAnsweredWithoutACurrentProfileWhicheverCallFails) {
    scene.withoutCurrentProfile();
    sweepAll();
}

INSTANTIATE_TEST_SUITE_P(Each, PlatformFaultTest, ::testing::ValuesIn(operationsOnAProperty()),
                         nameOf);

class OtherPlatformFaultTest : public SweepTest {
protected:
    /**
     * Checks the operation with each of its calls failing in turn, beside the undisturbed one.
     * @return how many calls there were to fail
     */
    template <class Check>
    std::size_t sweep(Check check) {
        const PreparedCall call = GetParam().prepare("");
        const Observed good = observe(call);
        const std::vector<PlannedFault> faults = faultsFor(good.calls);
        for (const PlannedFault& fault : faults) {
            SCOPED_TRACE(fault.function + ", call " + std::to_string(fault.nth));
            scene.scene().failNth(fault.function, fault.nth, failure);
            check(observe(call), good);
            expectHandlesInOrder();
        }
        return faults.size();
    }
};

TEST_P(OtherPlatformFaultTest, GivesItsAnswerOrNoneWhicheverCallFails) {
    sweep([](const Observed& faulty, const Observed& good) {
        EXPECT_THAT(faulty.answer.text, AnyOf(good.answer.text, ""));
        EXPECT_TRUE(faulty.answer.done || faulty.failures() > good.failures());
    });
}

INSTANTIATE_TEST_SUITE_P(Each, OtherPlatformFaultTest, ::testing::ValuesIn(otherOperations()),
                         nameOf);

class DocumentPlatformFaultTest : public OtherPlatformFaultTest {
protected:
    /** How many properties are told otherwise. */
    static std::size_t differences(const std::string& text, const std::string& good) {
        const Entries goodEntries = entriesOf(good);
        std::size_t number = 0;
        for (const auto& [path, entry] : entriesOf(text)) {
            const auto found = goodEntries.find(path);
            const bool isSame = found != goodEntries.end() && found->second == entry;
            number += isSame ? 0 : 1;
        }
        return number;
    }
};

TEST_P(DocumentPlatformFaultTest, CostsOnePropertyItsAnswerWhicheverCallFails) {
    const std::size_t failed = sweep([](const Observed& faulty, const Observed& good) {
        EXPECT_TRUE(faulty.answer.done);
        if (!good.answer.text.empty()) {
            EXPECT_EQ(entriesOf(faulty.answer.text).size(), entriesOf(good.answer.text).size());
            EXPECT_LE(differences(faulty.answer.text, good.answer.text), 1u);
        }
    });
    EXPECT_GT(failed, 0u);
}

INSTANTIATE_TEST_SUITE_P(Each, DocumentPlatformFaultTest, ::testing::ValuesIn(operationsOnAll()),
                         nameOf);

} // namespace
