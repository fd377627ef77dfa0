#include "RestoreTest.h"

#include <set>

namespace {

std::set<std::string> pathsIn(const Json::Value& entries) {
    std::set<std::string> paths;
    for (const Json::Value& entry : entries) {
        paths.insert(entry["path"].asString());
    }
    return paths;
}

/// What the set holds is written to documents of both forms, changed and brought back.
class RoundTripTest : public RestoreTest, public testing::WithParamInterface<const char*> {
protected:
    /// Every setting is changed: none of the machine's own hardware may be among them.
    ToolRun tool() const override { return onPlayedHardware(); }

    std::string dumped(const std::string& name) const {
        std::string file = outputFolder() / name;
        // Everything: a request for "*" leaves categories out.
        const Outcome outcome =
            run({"dump", "Picture", "General", "General & Privacy", "Sound", "Broadcasting",
                 "Factory", "Input", "Network", "SetInformation", "SystemInformation", "Support",
                 "Connection", "--format", GetParam(), "-o", file});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return file;
    }

    /// The settings that hold something else than the document tells.
    std::set<std::string> changedSince(const std::string& file) const {
        return pathsIn(report({"diff", file}).root["differences"]);
    }

    /// Every setting.
    std::set<std::string> settings() const {
        return pathsIn(report({"reset", "--all", "--dry-run"}).root["properties"]);
    }

    /// Gives every setting that is still as in the document the value, where it takes it.
    void offer(const std::string& value, const std::set<std::string>& paths) const {
        Json::Value document;
        for (const std::string& path : paths) {
            const std::size_t slash = path.find('/', 1);
            document[path.substr(1, slash - 1)][path.substr(slash + 1)]["Value"] = value;
        }
        run({"restore", fileOf(Json::writeString(Json::StreamWriterBuilder(), document))});
    }

    /// Changes all settings but those that settle what others hold.
    std::set<std::string> changeFrom(const std::string& file) const {
        std::set<std::string> left = settings();
        left.erase(mode);
        for (const char* value : {"1", "0", "2", "3", "4", "7", "30/70", "de_DE"}) {
            offer(value, left);
            for (const std::string& path : changedSince(file)) {
                left.erase(path);
            }
        }
        return left;
    }
};

} // namespace

TEST_P(RoundTripTest, BringsEverySettingBack) {
    const std::string before = dumped("before");
    const std::string document = contentOf(before);
    ASSERT_GT(settings().size(), 60U);
    EXPECT_EQ(changeFrom(before), std::set<std::string>());
    ASSERT_EQ(run({"set", mode, "3"}).status, 0);
    const Report report = this->report({"restore", before});
    EXPECT_EQ(report.status, 0) << report.messages;
    EXPECT_GT(report.count("applied"), 55);
    EXPECT_EQ(contentOf(dumped("after")), document);
}

TEST_P(RoundTripTest, BringsNamesAndValuesOfEveryKindBack) {
    const std::string doubled = "/Connection/Network/Expert Settings/Power On with  Mobile";
    const std::string plus = "/General/External Device Manager/Cordix+(HDMI-CEC)";
    const std::string ampersand = "/General & Privacy/System Manager/Language";
    const std::string value = "<\"a\" & 'b'>\n\t \xC3\xA4\xE2\x82\xAC ";
    for (const auto& [path, changed] : {std::pair{doubled, "1"}, {plus, "0"}}) {
        ASSERT_EQ(run({"set", path, changed}).status, 0) << path;
    }
    ASSERT_EQ(run({"set", ampersand, value}).status, 0);
    const std::string before = dumped("before");
    const std::string document = contentOf(before);
    for (const auto& [path, changed] : {std::pair{doubled, "0"}, {plus, "1"}, {ampersand, "x"}}) {
        ASSERT_EQ(run({"set", path, changed}).status, 0) << path;
    }
    ASSERT_NE(contentOf(dumped("reset")), document);
    EXPECT_EQ(run({"restore", before}).status, 0);
    EXPECT_EQ(contentOf(dumped("after")), document);
    EXPECT_EQ(valueOf(ampersand), value);
}

INSTANTIATE_TEST_SUITE_P(Formats, RoundTripTest, testing::Values("xml", "json"),
                         [](const auto& format) { return std::string(format.param); });
