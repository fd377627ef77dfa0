#include "DocumentText.h"
#include "DocumentsTest.h"
#include "XmlDocument.h"
#include "XmlErrors.h"

#include "Exception.h"
#include "KLXCommonUtil.h"

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <random>
#include <set>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::Gt;

namespace {

int searches = 0;

} // namespace

// The linker sends the library's searches here.
extern "C" xmlXPathObjectPtr __real_xmlXPathEvalExpression(const xmlChar*, xmlXPathContextPtr);
extern "C" xmlXPathObjectPtr __wrap_xmlXPathEvalExpression(const xmlChar* expression,
                                                           xmlXPathContextPtr context) {
    ++searches;
    return __real_xmlXPathEvalExpression(expression, context);
}

namespace {

struct Segment {
    std::string name;
    std::size_t length = 1;
};

/** Cuts the first segment off: up to the next slash that has no twin. */
Segment cut(const std::string& path) {
    Segment segment;
    while (segment.length < path.size()) {
        if (path[segment.length] == '/' && path.compare(segment.length, 2, "//") != 0) {
            break;
        }
        segment.name += path[segment.length];
        segment.length += path[segment.length] == '/' ? 2 : 1;
    }
    return segment;
}

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

/** A document that libxml2 builds by itself, in which every element is sought by an expression. */
class SearchedDocument {
public:
    SearchedDocument() {
        const xmlNodePtr root = xmlNewDocNode(m_document.get(), nullptr, xmlText("rm_as"), nullptr);
        xmlDocSetRootElement(m_document.get(), root);
        set(root, "version", "2.5");
        m_device = xmlNewChild(root, nullptr, xmlText("deviceInfo"), nullptr);
        set(m_device, "devicetype", "TV");
    }

    void add(const std::string& path, const std::string& value) {
        const xmlNodePtr leaf = element(m_device, path, "menu");
        set(leaf, "default", "");
        set(leaf, "value", value);
    }

    std::string text() const {
        std::string text;
        KLXCommonUtil::xmlDocumentToString(m_document.get(), text);
        return text;
    }

    const std::vector<std::string>& linesOfCreation() const { return m_lines; }

private:
    static void set(xmlNodePtr element, const char* name, const std::string& value) {
        const std::string text = documentText(value);
        ASSERT_NE(KLXCommonUtil::xmlSetAttribute(element, name, text.c_str()), nullptr);
    }

    xmlNodePtr element(xmlNodePtr parent, const std::string& path, const char* kind) {
        const Segment segment = cut(path);
        const std::string name = documentText(segment.name);
        const auto found = KLXCommonUtil::xmlFindNodes(parent, "*[@name='" + name + "']");
        if (found.size() > 1) {
            throw KLX::Exception("XML tree has invalid structure");
        }
        const xmlNodePtr own = found.empty() ? create(parent, kind, segment) : found.front();
        return segment.length < path.size() ? element(own, path.substr(segment.length), "property")
                                            : own;
    }

    xmlNodePtr create(xmlNodePtr parent, const char* kind, const Segment& segment) {
        m_lines.push_back("3 Creating " + segment.name);
        const xmlNodePtr created = xmlNewChild(parent, nullptr, xmlText(kind), nullptr);
        set(created, "name", segment.name);
        return created;
    }

    XmlDocument m_document{xmlNewDoc(xmlText("1.0"))};
    xmlNodePtr m_device;
    std::vector<std::string> m_lines;
};

/** What a request leaves behind. */
struct Outcome {
    std::string document;
    std::vector<std::string> failure;
    std::vector<std::string> created;
    std::vector<std::string> noise;

    bool operator==(const Outcome& other) const {
        return document == other.document && failure == other.failure && created == other.created &&
               noise == other.noise;
    }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    return out << outcome.document << ::testing::PrintToString(outcome.failure)
               << ::testing::PrintToString(outcome.created)
               << ::testing::PrintToString(outcome.noise);
}

/** Documents of which nobody knows what is in them. */
class XmlIndexTest : public DocumentsTest {
protected:
    Outcome built(const Request& request) {
        Outcome outcome;
        fake::clearHistory();
        CDeviceInfoManager::GetDeviceInfo(request, outcome.document, "", xml);
        outcome.failure = linesOf("GetDeviceInfo");
        outcome.failure.erase(outcome.failure.begin());
        outcome.created = linesOf("createTree");
        outcome.noise = linesOf("logXmlError");
        return outcome;
    }

    /** The same from searches alone, for the paths in their order. */
    Outcome searched(const std::vector<std::string>& paths) {
        Outcome outcome;
        fake::clearHistory();
        SearchedDocument document;
        try {
            const auto noise = KLX::XmlErrorScope::toLog();
            for (const std::string& path : paths) {
                document.add(path, records.valueOf(path));
            }
            outcome.document = document.text();
        } catch (const KLX::Exception& error) {
            outcome.failure = {std::string("5 exception occured =[") + error.what() + "]"};
        }
        outcome.created = document.linesOfCreation();
        outcome.noise = linesOf("logXmlError");
        return outcome;
    }

    int searchesFor(const Request& request) {
        searches = 0;
        dump(request, xml);
        return searches;
    }
};

/** Names of a menu and of properties: plain ones, odd ones and such as are more than a name. */
const std::vector<std::string> plainNames = {"A",    "B",    "A B",  "A  B",     "\xC3\xA9", "\x01",
                                             "\x02", "\xFF", "a//b", "",         "\"",       "&lt;",
                                             "<",    "a\nb", "name", "@name=\"A"};
const std::vector<std::string> quotedNames = {"' or '1'='1",      "x' and '1'='2",
                                              "A' or @name='B",   "it's",
                                              "x'] | *[@name='A", "x'] | parent::*[.!='q"};

class RandomPaths {
public:
    explicit RandomPaths(unsigned seed) : m_engine(seed) {}

    std::string path() {
        std::string path = "/" + name();
        for (unsigned depth = below(3) + 1; depth > 0; --depth) {
            path += "/" + name();
        }
        return path;
    }

    unsigned below(std::size_t end) { return static_cast<unsigned>(m_engine() % end); }

private:
    const std::string& name() {
        const auto& some = below(20) == 0 ? quotedNames : plainNames;
        return some[below(some.size())];
    }

    std::mt19937 m_engine;
};

/** The paths of some properties, in byte order. */
std::vector<std::string> somePaths(RandomPaths& random) {
    std::set<std::string> chosen;
    for (unsigned count = random.below(12) + 1; count > 0; --count) {
        chosen.insert(random.path());
    }
    return {chosen.begin(), chosen.end()};
}

std::string categoryOf(const std::string& path) {
    return path.substr(1, path.find('/', 1) - 1);
}

/** Up to eight of the paths in any order, but category by category, as requests are. */
std::vector<std::string> someOf(const std::vector<std::string>& paths, RandomPaths& random) {
    std::vector<std::string> chosen;
    for (unsigned count = random.below(8) + 1; count > 0; --count) {
        chosen.push_back(paths[random.below(paths.size())]);
    }
    std::stable_sort(chosen.begin(), chosen.end(),
                     [](const std::string& left, const std::string& right) {
                         return categoryOf(left) < categoryOf(right);
                     });
    return chosen;
}

TEST_F(XmlIndexTest, AnyRequestGivesWhatSearchesGive) {
    int documents = 0;
    int failures = 0;
    for (unsigned seed = 0; seed < 600; ++seed) {
        RandomPaths random(seed);
        std::vector<std::string> paths = somePaths(random);
        DeviceInfoManagerSeam::records().clear();
        for (const std::string& path : paths) {
            records.add(path, "value of " + path);
        }
        // Some are asked for by name, in any order and more than once; often behind all the others.
        const std::vector<std::string> named = someOf(paths, random);
        Request request;
        if (random.below(2) == 0) {
            paths.clear();
        } else {
            request[""] = {"*"};
        }
        for (const std::string& path : named) {
            request[categoryOf(path)].push_back(path.substr(categoryOf(path).size() + 2));
        }
        paths.insert(paths.end(), named.begin(), named.end());

        const Outcome outcome = built(request);
        ASSERT_EQ(outcome, searched(paths)) << "seed " << seed;
        (outcome.failure.empty() ? documents : failures) += 1;
    }
    EXPECT_THAT(documents, Gt(100));
    EXPECT_THAT(failures, Gt(30));
}

TEST_F(XmlIndexTest, PlainNamesNeedNoSearch) {
    records.add("/M/A/B").add("/M/A/C").add("/M/A//B").add("/N/A/B").add("/N/ \"A\" \xFF/B");
    EXPECT_EQ(searchesFor({{"", {"*"}}, {"M", {"A/B", "A/C"}}}), 0);
}

TEST_F(XmlIndexTest, NamesWithAQuoteAreSearchedFor) {
    records.add("/M/x' and '1'='2").add("/M/A");
    EXPECT_EQ(searchesFor({{"", {"*"}}}), 1);
}

TEST_F(XmlIndexTest, TwoElementsOfOneNameAreSeenByTheSearch) {
    const std::string bornTwice = "x' and '1'='2";
    records.add("/M/" + bornTwice);
    const std::string document = dump({{"M", {bornTwice, bornTwice}}}, xml);
    EXPECT_EQ(built({{"M", {bornTwice, bornTwice}}}),
              searched({"/M/" + bornTwice, "/M/" + bornTwice}));
    EXPECT_NE(document.find("<property"), document.rfind("<property"));
}

TEST_F(XmlIndexTest, NameIsFoundAgainBehindAQuotedOneThatIsSmaller) {
    const std::string quoted = "x' and '1'='2";
    records.add("/M/" + quoted).add("/M/y");
    EXPECT_EQ(built({{"M", {"y", quoted, "y"}}}), searched({"/M/y", "/M/" + quoted, "/M/y"}));
}

TEST_F(XmlIndexTest, ElementWithoutANameIsNotTheOneOfAnEmptyName) {
    const std::string path = "/x'] | parent::*[.!='q/";
    records.add(path, "1");
    EXPECT_EQ(built({{"", {"*"}}}), searched({path}));
}

TEST_F(XmlIndexTest, NameThatLeadsToNoElementFailsTheDocument) {
    const std::string attribute = "/x'] | @devicetype[.!='q";
    const std::string document = "/x'] | ancestor::node()[2][.!='q";
    for (const std::string& path : {attribute, attribute + "/A", document, document + "/A"}) {
        DeviceInfoManagerSeam::records().clear();
        records.add(path, "1");
        const Outcome outcome = built({{"", {"*"}}});
        EXPECT_THAT(outcome.failure,
                    ElementsAre("5 exception occured =[XML tree has invalid structure]"));
        EXPECT_EQ(outcome.document, "");
    }
}

TEST_F(XmlIndexTest, NamesInAnyOrderAreFoundAgain) {
    records.add("/M/a").add("/M/b").add("/M/c").add("/M/d");
    EXPECT_EQ(built({{"M", {"b", "d", "c", "a", "d", "c", "b", "a"}}}),
              searched({"/M/b", "/M/d", "/M/c", "/M/a", "/M/d", "/M/c", "/M/b", "/M/a"}));
}

TEST_F(XmlIndexTest, SameNameBelowAnotherParentIsAnotherElement) {
    records.add("/A/A/A", "1").add("/A/B", "2").add("/B/A", "3");
    EXPECT_EQ(built({{"", {"*"}}}), searched({"/A/A/A", "/A/B", "/B/A"}));
}

} // namespace
