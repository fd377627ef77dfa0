#include "DocumentsTest.h"
#include "LoadingWatch.h"

#include <libxml/parser.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>
#include <stdlib.h>

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

const std::string secret = "secret";

/** A file that nobody should read, in a folder of its own. */
class WatchedFile {
public:
    WatchedFile() : m_folder(newFolder()), m_path(m_folder + "/file.dtd") {
        std::ofstream(m_path) << "<!ENTITY loaded \"" << secret << "\">";
        m_watch = std::make_unique<FileWatch>(m_path);
    }
    ~WatchedFile() { std::filesystem::remove_all(m_folder); }
    WatchedFile(const WatchedFile&) = delete;
    WatchedFile& operator=(const WatchedFile&) = delete;

    const std::string& path() const { return m_path; }
    bool wasOpened() const { return m_watch->sawOpening(); }

private:
    static std::string newFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "klx-test-XXXXXX").string();
        return mkdtemp(name.data());
    }

    std::string m_folder;
    std::string m_path;
    std::unique_ptr<FileWatch> m_watch;
};

const std::string body =
    "<rm_as><deviceInfo>" + xmlMenu("Sound", xmlProperty("Mute", "1")) + "</deviceInfo></rm_as>";

std::string bodyWith(const std::string& insertion) {
    return "<rm_as><deviceInfo>" + insertion + xmlMenu("Sound", xmlProperty("Mute", "1")) +
           "</deviceInfo></rm_as>";
}

struct Reference {
    const char* name;
    /** A document that refers to an address. */
    std::string (*document)(const std::string& address);
};

void PrintTo(const Reference& reference, std::ostream* out) {
    *out << reference.name;
}

const Reference referenceForms[] = {
    {"InText",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as [<!ENTITY a SYSTEM \"" + address + "\">]>" + bodyWith("&a;");
     }},
    {"InAValue",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as [<!ENTITY a SYSTEM \"" + address + "\">]>" +
                bodyWith(xmlMenu("Sound", xmlProperty("Mute", "&a;")));
     }},
    {"InAnEntity",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as [<!ENTITY a SYSTEM \"" + address + "\"><!ENTITY b \"&a;\">]>" +
                bodyWith("&b;");
     }},
    {"AsAParameter",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as [<!ENTITY % a SYSTEM \"" + address + "\">%a;]>" +
                bodyWith("&loaded;");
     }},
    {"ByAPublicName",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as [<!ENTITY a PUBLIC \"-//a\" \"" + address + "\">]>" +
                bodyWith("&a;");
     }},
    {"AsTheDocumentType",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as SYSTEM \"" + address + "\">" + bodyWith("&loaded;");
     }},
    {"AsTheDocumentTypeOfAWholeDocument",
     [](const std::string& address) {
         return "<!DOCTYPE rm_as SYSTEM \"" + address + "\">" + body;
     }},
    {"AsAnInclusion",
     [](const std::string& address) {
         return bodyWith(
             "<x:include name=\"x\" xmlns:x=\"http://www.w3.org/2001/XInclude\" href=\"" + address +
             "\"/>");
     }},
    {"AsAStylesheet",
     [](const std::string& address) {
         return "<?xml-stylesheet type=\"text/xsl\" href=\"" + address + "\"?>" + body;
     }},
    {"AsACatalogue",
     [](const std::string& address) {
         return "<?oasis-xml-catalog catalog=\"" + address +
                "\"?><!DOCTYPE rm_as SYSTEM \"a.dtd\">" + body;
     }},
    {"AsASchema", [](const std::string& address) {
         return "<rm_as xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                "xsi:noNamespaceSchemaLocation=\"" +
                address + "\"/>";
     }}};

class ExternalEntityTest : public DocumentsTest, public ::testing::WithParamInterface<Reference> {
protected:
    ExternalEntityTest() { records.add("/Sound/Mute"); }

    void restoreReferring(const std::string& address) {
        restore(GetParam().document(address), xml);
        EXPECT_THAT(records.applied(), Each(Not(HasSubstr(secret))));
    }

    WatchedFile file;
    LoopbackPort port;
};

TEST_P(ExternalEntityTest, FileIsNotTouched) {
    restoreReferring("file://" + file.path());
    restoreReferring(file.path());
    EXPECT_FALSE(file.wasOpened());
}

TEST_P(ExternalEntityTest, NetworkIsNotTouched) {
    restoreReferring("http://127.0.0.1:" + std::to_string(port.number()) + "/a");
    restoreReferring("ftp://127.0.0.1:" + std::to_string(port.number()) + "/a");
    EXPECT_FALSE(port.sawConnection());
}

/** libxml2's process-wide settings as a careless program would set them. */
class CarelessSettings {
public:
    CarelessSettings()
        : m_load(xmlLoadExtDtdDefaultValue), m_validate(xmlDoValidityCheckingDefaultValue),
          m_substitute(xmlSubstituteEntitiesDefault(1)) {
        xmlLoadExtDtdDefaultValue = 1;
        xmlDoValidityCheckingDefaultValue = 1;
    }
    ~CarelessSettings() {
        xmlLoadExtDtdDefaultValue = m_load;
        xmlDoValidityCheckingDefaultValue = m_validate;
        xmlSubstituteEntitiesDefault(m_substitute);
    }
    CarelessSettings(const CarelessSettings&) = delete;
    CarelessSettings& operator=(const CarelessSettings&) = delete;

private:
    int m_load;
    int m_validate;
    int m_substitute;
};

TEST_P(ExternalEntityTest, NothingIsTouchedWhateverTheProcessHasSet) {
    const CarelessSettings settings;
    restoreReferring("file://" + file.path());
    restoreReferring("http://127.0.0.1:" + std::to_string(port.number()) + "/a");
    EXPECT_FALSE(file.wasOpened());
    EXPECT_FALSE(port.sawConnection());
}

INSTANTIATE_TEST_SUITE_P(References, ExternalEntityTest, ::testing::ValuesIn(referenceForms),
                         [](const auto& test) { return test.param.name; });

/** Without these the tests above could not fail. */
class LoadingWatchTest : public ::testing::Test {
protected:
    /** Parses as the library must not. */
    static void parseLoading(const std::string& address) {
        const std::string document = referenceForms[0].document(address);
        const int options = XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
        xmlFreeDoc(xmlReadMemory(document.data(), static_cast<int>(document.size()), "t", nullptr,
                                 options));
    }
};

TEST_F(LoadingWatchTest, SeesThatAFileIsLoaded) {
    const WatchedFile file;
    parseLoading("file://" + file.path());
    EXPECT_TRUE(file.wasOpened());
}

TEST_F(LoadingWatchTest, SeesThatAPortIsConnected) {
    LoopbackPort port;
    parseLoading("http://127.0.0.1:" + std::to_string(port.number()) + "/a");
    EXPECT_TRUE(port.sawConnection());
}

} // namespace
