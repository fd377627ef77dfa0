// What one record costs when there are few and when there are many, all in one category.

#include "DeviceInfoManager.h"

#include <benchmark/benchmark.h>
#include <boost/optional.hpp>
#include <json/json.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>
#include <stdexcept>

/// The library's seam for records that are not the catalogue's.
struct DeviceInfoManagerSeam {
    explicit DeviceInfoManagerSeam(PropertyAccessorMap records) {
        CDeviceInfoManager::m_pDeviceInfoManager = new CDeviceInfoManager(std::move(records));
    }
    ~DeviceInfoManagerSeam() { delete CDeviceInfoManager::m_pDeviceInfoManager.exchange(nullptr); }
    DeviceInfoManagerSeam(const DeviceInfoManagerSeam&) = delete;
    DeviceInfoManagerSeam& operator=(const DeviceInfoManagerSeam&) = delete;
};

namespace {

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;

/// Names of one length, so that they cost the same.
std::string nameOf(benchmark::IterationCount number) {
    return "Setting " + std::to_string(100000 + number);
}

PropertyAccessorMap records(benchmark::IterationCount count) {
    PropertyAccessorMap records;
    const auto one = [](const std::string&) {
        return std::string("1");
    };
    for (benchmark::IterationCount i = 0; i < count; ++i) {
        records["/Picture/" + nameOf(i)] = PropertyAccessor(
            one, one, boost::none, [](const std::string&) {}, true);
    }
    return records;
}

std::string dumped(CDeviceInfoManager::DataFormatType format) {
    std::string document;
    if (!CDeviceInfoManager::GetDeviceInfo({{"Picture", {"*"}}}, document, "", format)) {
        throw std::runtime_error("the document cannot be built");
    }
    return document;
}

void dump(benchmark::State& state, CDeviceInfoManager::DataFormatType format) {
    const DeviceInfoManagerSeam manager(records(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(dumped(format));
    }
}

void restore(benchmark::State& state, CDeviceInfoManager::DataFormatType format) {
    const DeviceInfoManagerSeam manager(records(state.range(0)));
    const std::string document = dumped(format);
    for (auto _ : state) {
        CDeviceInfoManager::SetDeviceInfo(document, format);
    }
}

/// The same document of libxml2's, from nothing but a loop: what its memory alone costs when there
/// are many.
std::string builtXml(benchmark::IterationCount count) {
    const auto text = [](const char* plain) {
        return reinterpret_cast<const xmlChar*>(plain);
    };
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(xmlNewDoc(text("1.0")),
                                                                  &xmlFreeDoc);
    const xmlNodePtr root = xmlNewDocNode(document.get(), nullptr, text("rm_as"), nullptr);
    xmlDocSetRootElement(document.get(), root);
    xmlNewProp(root, text("version"), text("2.5"));
    const xmlNodePtr device = xmlNewChild(root, nullptr, text("deviceInfo"), nullptr);
    xmlNewProp(device, text("devicetype"), text("TV"));
    const xmlNodePtr menu = xmlNewChild(device, nullptr, text("menu"), nullptr);
    xmlNewProp(menu, text("name"), text("Picture"));
    for (benchmark::IterationCount i = 0; i < count; ++i) {
        const xmlNodePtr leaf = xmlNewChild(menu, nullptr, text("property"), nullptr);
        xmlNewProp(leaf, text("name"), text(nameOf(i).c_str()));
        xmlNewProp(leaf, text("default"), text("1"));
        xmlNewProp(leaf, text("value"), text("1"));
    }
    xmlChar* serialised = nullptr;
    int size = 0;
    xmlDocDumpFormatMemoryEnc(document.get(), &serialised, &size, "utf-8", 1);
    const std::unique_ptr<xmlChar, decltype(xmlFree)> owner(serialised, xmlFree);
    return {reinterpret_cast<const char*>(serialised), static_cast<std::size_t>(size)};
}

std::string builtJson(benchmark::IterationCount count) {
    Json::Value root;
    for (benchmark::IterationCount i = 0; i < count; ++i) {
        Json::Value& entry = root["Picture"][nameOf(i)];
        entry["Default"] = "1";
        entry["Value"] = "1";
    }
    return Json::writeString(Json::StreamWriterBuilder(), root);
}

template <class Build>
void buildDirectly(benchmark::State& state, CDeviceInfoManager::DataFormatType format,
                   Build build) {
    {
        const DeviceInfoManagerSeam manager(records(state.range(0)));
        if (build(state.range(0)) != dumped(format)) {
            state.SkipWithError("the floor builds another document than the library");
            return;
        }
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(build(state.range(0)));
    }
}

/// What a library call gave, freed by libxml2.
using XmlText = std::unique_ptr<xmlChar, decltype(xmlFree)>;

std::size_t lengthOf(xmlNodePtr element, const char* attribute) {
    const XmlText text(xmlGetProp(element, reinterpret_cast<const xmlChar*>(attribute)), xmlFree);
    return static_cast<std::size_t>(xmlStrlen(text.get()));
}

/// Reads a document with nothing but libxml2 and looks at each name and value.
std::size_t readXml(const std::string& document) {
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> parsed(
        xmlReadMemory(document.data(), static_cast<int>(document.size()), "document", nullptr, 0),
        &xmlFreeDoc);
    const xmlNodePtr device = xmlFirstElementChild(xmlDocGetRootElement(parsed.get()));
    const xmlNodePtr menu = xmlFirstElementChild(device);
    std::size_t length = 0;
    for (xmlNodePtr leaf = xmlFirstElementChild(menu); leaf != nullptr;
         leaf = xmlNextElementSibling(leaf)) {
        length += lengthOf(leaf, "name") + lengthOf(leaf, "value");
    }
    return length;
}

/// The same with nothing but jsoncpp.
std::size_t readJson(const std::string& document) {
    Json::Value root;
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    reader->parse(document.data(), document.data() + document.size(), &root, nullptr);
    const Json::Value& menu = root["Picture"];
    std::size_t length = 0;
    for (auto leaf = menu.begin(); leaf != menu.end(); ++leaf) {
        length += leaf.name().size() + (*leaf)["Value"].asString().size();
    }
    return length;
}

template <class Read>
void readDirectly(benchmark::State& state, CDeviceInfoManager::DataFormatType format, Read read) {
    const DeviceInfoManagerSeam manager(records(state.range(0)));
    const std::string document = dumped(format);
    const std::size_t oneRecord = nameOf(0).size() + 1;
    if (read(document) != static_cast<std::size_t>(state.range(0)) * oneRecord) {
        state.SkipWithError("the floor reads something else than the document holds");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(read(document));
    }
}

void restoreXmlFloor(benchmark::State& state) {
    readDirectly(state, xml, readXml);
}

void restoreJsonFloor(benchmark::State& state) {
    readDirectly(state, json, readJson);
}

void dumpXmlFloor(benchmark::State& state) {
    buildDirectly(state, xml, builtXml);
}

void dumpJsonFloor(benchmark::State& state) {
    buildDirectly(state, json, builtJson);
}

void fewAndMany(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(122)->Arg(1220)->Arg(12200);
}

BENCHMARK_CAPTURE(dump, Xml, xml)->Apply(fewAndMany);
BENCHMARK(dumpXmlFloor)->Name("dump/Xml/floor")->Apply(fewAndMany);
BENCHMARK_CAPTURE(dump, Json, json)->Apply(fewAndMany);
BENCHMARK(dumpJsonFloor)->Name("dump/Json/floor")->Apply(fewAndMany);
BENCHMARK_CAPTURE(restore, Xml, xml)->Apply(fewAndMany);
BENCHMARK(restoreXmlFloor)->Name("restore/Xml/floor")->Apply(fewAndMany);
BENCHMARK_CAPTURE(restore, Json, json)->Apply(fewAndMany);
BENCHMARK(restoreJsonFloor)->Name("restore/Json/floor")->Apply(fewAndMany);

} // namespace

BENCHMARK_MAIN();
