#include "KlxctlTest.h"

#include <cstdlib>
#include <ostream>
#include <regex>
#include <set>
#include <sstream>

namespace {

/// What a set tells of the machine that plays it.
const std::set<std::string> machineFacts = {
    "/Network/DNS",
    "/Network/DeviceName",
    "/Network/Gateway",
    "/Network/IP",
    "/Network/IPMode",
    "/Network/MAC",
    "/Network/SubnetMask",
    "/Network/Type",
    "/SetInformation/Firmware_Version",
    "/SetInformation/SerialNumber",
};

/// Follows the lines of a document, each of which is indented by its depth.
class Masking {
public:
    std::string masked(const std::string& line) {
        static const std::regex element(R"x(^( *)<(?:menu|property) name="([^"]*)")x");
        static const std::regex member(R"x(^(\t*)"([^"]*)" :)x");
        static const std::regex value(R"x(( value=|"Value" : )"[^"]*")x");
        std::smatch found;
        if (std::regex_search(line, found, element)) {
            follow(static_cast<std::size_t>(found.length(1)) / 2 - 2, found[2]);
        } else if (std::regex_search(line, found, member) && found[2] != "Value") {
            follow(static_cast<std::size_t>(found.length(1)) - 1, found[2]);
        }
        return machineFacts.count(path()) == 0 ? line
                                               : std::regex_replace(line, value, "$1\"(machine)\"");
    }

private:
    void follow(std::size_t depth, const std::string& name) {
        if (name != "Default") {
            m_names.resize(depth);
            m_names.push_back(name);
        }
    }

    std::string path() const {
        std::string path;
        for (const std::string& name : m_names) {
            path += "/" + name;
        }
        return path;
    }

    std::vector<std::string> m_names;
};

std::string maskedDocument(const std::string& document) {
    Masking masking;
    std::istringstream lines(document);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        result += masking.masked(line) + "\n";
    }
    return result;
}

struct Document {
    const char* profile;
    const char* format;
};

void PrintTo(const Document& document, std::ostream* out) {
    *out << document.profile << "." << document.format;
}

/// The documents of everything that the shipped profiles tell.
class GoldenTest : public KlxctlTest, public testing::WithParamInterface<Document> {
protected:
    std::string document() const {
        const Outcome outcome = onPlayedHardware()
                                    .environment("KLX_PROFILE", GetParam().profile)
                                    .run({"dump", "--format", GetParam().format});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return maskedDocument(outcome.output);
    }

    const std::filesystem::path golden =
        std::filesystem::path(KLXCTL_GOLDEN_FOLDER) /
        (std::string(GetParam().profile) + "." + GetParam().format);
};

TEST_P(GoldenTest, DocumentIsTheKnownOne) {
    const std::string now = document();
    if (std::getenv("KLX_UPDATE_GOLDEN") != nullptr) {
        writeFile(golden, now);
        FAIL() << golden << " is written anew; look at the difference and run again without "
               << "KLX_UPDATE_GOLDEN";
    }
    EXPECT_EQ(now, contentOf(golden));
}

INSTANTIATE_TEST_SUITE_P(Profiles, GoldenTest,
                         testing::Values(Document{"standard", "xml"}, Document{"standard", "json"},
                                         Document{"tessa", "xml"}, Document{"tessa", "json"}),
                         [](const auto& parameter) {
                             return std::string(parameter.param.profile) + "_" +
                                    parameter.param.format;
                         });

} // namespace
