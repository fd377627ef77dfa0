#include "RestoreTest.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <map>

using testing::AnyOf;

namespace {

using Values = std::map<std::string, std::string>;
using Seconds = std::chrono::duration<double>;

const std::string menu = "Picture";

/// What the restored document holds; nothing of it is a default.
const Values wanted = {{"Backlight", "12"},
                       {"Brightness", "12"},
                       {"Color", "12"},
                       {"Contrast", "12"},
                       {"Contrast Enhancer", "1"},
                       {"Expert Settings/Apply Picture Settings", "1"},
                       {"Expert Settings/Film Mode", "2"},
                       {"Gamma", "2"},
                       {"Gamma Value", "1"},
                       {"HDR+ Mode", "1"},
                       {"Sharpness", "12"},
                       {"Tint", "70/30"}};

/// Restoring that a signal ends at one moment after the other.
class RestoreMoments : public RestoreTest, public testing::WithParamInterface<int> {
protected:
    RestoreMoments() {
        std::vector<std::vector<std::string>> pairs;
        for (const auto& [property, value] : wanted) {
            pairs.push_back({property, value});
        }
        m_document = fileOf(jsonOf(menu, pairs));
        m_defaults = valuesIn(folder() / "untouched");
    }

    /// How long a restore takes that nobody interrupts.
    Seconds wholeTime() const {
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(toolWith(folder() / "measured").run({"restore", m_document}).status, 0);
        return std::chrono::steady_clock::now() - begin;
    }

    Outcome endedAfter(Seconds moment, const std::filesystem::path& state,
                       const std::vector<std::string>& options) const {
        std::vector<std::string> command = {"timeout",
                                            "--foreground",
                                            "--preserve-status",
                                            "-s",
                                            sigabbrev_np(GetParam()),
                                            std::to_string(moment.count()),
                                            KLXCTL_TOOL,
                                            "restore",
                                            m_document,
                                            "--json"};
        command.insert(command.end(), options.begin(), options.end());
        Outcome outcome = toolWith(state).runProgram(command);
        // The process that waits for the killed one may tell its end by its own.
        EXPECT_THAT(outcome.status, AnyOf(0, 128 + GetParam())) << outcome.messages;
        return outcome;
    }

    /// Everything holds, and the report says so; or nothing of it does.
    void interruptAllOrNothingAfter(Seconds moment, const std::filesystem::path& state) const {
        const Outcome outcome = endedAfter(moment, state, {"--all-or-nothing"});
        const bool isReportedHeld =
            !outcome.output.empty() && jsonFrom(outcome.output)["held"].asBool();
        EXPECT_EQ(valuesIn(state), isReportedHeld ? wanted : m_defaults) << outcome.output;
        EXPECT_TRUE(isReportedHeld || outcome.status != 0);
    }

    void interruptAfter(Seconds moment, const std::filesystem::path& state) const {
        const Outcome outcome = endedAfter(moment, state, {});
        const Values held = valuesIn(state);
        if (!outcome.output.empty()) {
            expectReportToBeTrue(Report{outcome.status, outcome.messages, jsonFrom(outcome.output)},
                                 held);
        } else if (GetParam() != SIGKILL) {
            EXPECT_EQ(held, m_defaults);
        }
        for (const auto& [property, value] : held) {
            EXPECT_THAT(value, AnyOf(m_defaults.at(property), wanted.at(property))) << property;
        }
    }

    /// The same restore afterwards, undisturbed, applies all.
    void expectRestorable(const std::filesystem::path& state) const {
        const Outcome outcome = toolWith(state).run({"restore", m_document});
        EXPECT_EQ(outcome.status, 0) << outcome.output << outcome.messages;
        EXPECT_EQ(valuesIn(state), wanted);
    }

private:
    ToolRun toolWith(const std::filesystem::path& state) const {
        ToolRun prepared = tool();
        prepared.environment("KLX_STATE_DIR", state);
        return prepared;
    }

    Values valuesIn(const std::filesystem::path& state) const {
        const Outcome outcome = toolWith(state).run({"dump", menu, "--format", "json"});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        const Json::Value root = jsonFrom(outcome.output);
        Values values;
        for (const auto& [property, value] : wanted) {
            values[property] = root[menu][property]["Value"].asString();
        }
        return values;
    }

    void expectReportToBeTrue(const Report& report, const Values& held) const {
        for (const auto& [property, value] : held) {
            const std::string result = report.resultOf("/" + menu + "/" + property);
            EXPECT_THAT(result, AnyOf("applied", "not written")) << property;
            EXPECT_EQ(value, result == "applied" ? wanted.at(property) : m_defaults.at(property))
                << property << " is " << result;
        }
    }

    std::string m_document;
    Values m_defaults;
};

} // namespace

TEST_P(RestoreMoments, LeaveEachSettingOldOrNewAndReportedSo) {
    constexpr int moments = 10;
    const Seconds whole = wholeTime();
    for (int moment = 1; moment <= moments; ++moment) {
        SCOPED_TRACE("moment " + std::to_string(moment));
        const std::filesystem::path state = folder() / ("state-" + std::to_string(moment));
        interruptAfter(whole * moment / moments, state);
        expectRestorable(state);
    }
    EXPECT_THAT(namesIn(outputFolder()), testing::ElementsAre("document"));
}

namespace {

class AllOrNothingMoments : public RestoreMoments {};

} // namespace

TEST_P(AllOrNothingMoments, LeaveEverythingOldOrEverythingNewAndReportedSo) {
    constexpr int moments = 20;
    const Seconds whole = wholeTime();
    for (int moment = 1; moment <= moments; ++moment) {
        SCOPED_TRACE("moment " + std::to_string(moment));
        const std::filesystem::path state = folder() / ("state-" + std::to_string(moment));
        interruptAllOrNothingAfter(whole * moment / moments, state);
    }
}

INSTANTIATE_TEST_SUITE_P(Signals, AllOrNothingMoments, testing::Values(SIGINT, SIGTERM),
                         [](const auto& signal) {
                             return std::string(sigabbrev_np(signal.param));
                         });

INSTANTIATE_TEST_SUITE_P(Signals, RestoreMoments, testing::Values(SIGINT, SIGTERM, SIGKILL),
                         [](const auto& signal) {
                             return std::string(sigabbrev_np(signal.param));
                         });
