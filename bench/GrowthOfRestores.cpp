// What one record costs when a document of few and one of many is restored.

#include "Floor.h"
#include "Growth.h"

#include <json/json.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>

using namespace growth;

namespace {

void restore(benchmark::State& state, CDeviceInfoManager::DataFormatType format) {
    const DeviceInfoManagerSeam manager(records(state.range(0)));
    const std::string document = dumped(format);
    for (auto _ : state) {
        CDeviceInfoManager::SetDeviceInfo(document, format);
    }
}

/// What a library call gave, freed by libxml2.
using XmlText = std::unique_ptr<xmlChar, decltype(xmlFree)>;

std::string textOf(xmlNodePtr element, const char* attribute) {
    const XmlText text(xmlGetProp(element, reinterpret_cast<const xmlChar*>(attribute)), xmlFree);
    return reinterpret_cast<const char*>(text.get());
}

/// @return how long both are
std::size_t applied(const std::string& name, const std::string& value) {
    floors::apply(integerSetting(), value);
    return name.size() + value.size();
}

/// Reads a document with nothing but libxml2 and applies each value.
/// @return how long all names and values are
std::size_t readXml(const std::string& document) {
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> parsed(
        xmlReadMemory(document.data(), static_cast<int>(document.size()), "document", nullptr, 0),
        &xmlFreeDoc);
    const xmlNodePtr device = xmlFirstElementChild(xmlDocGetRootElement(parsed.get()));
    const xmlNodePtr menu = xmlFirstElementChild(device);
    std::size_t length = 0;
    for (xmlNodePtr leaf = xmlFirstElementChild(menu); leaf != nullptr;
         leaf = xmlNextElementSibling(leaf)) {
        length += applied(textOf(leaf, "name"), textOf(leaf, "value"));
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
        length += applied(leaf.name(), (*leaf)["Value"].asString());
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

BENCHMARK_CAPTURE(restore, Xml, xml)->Apply(fewAndMany);
BENCHMARK(restoreXmlFloor)->Name("restore/Xml/floor")->Apply(fewAndMany);
BENCHMARK_CAPTURE(restore, Json, json)->Apply(fewAndMany);
BENCHMARK(restoreJsonFloor)->Name("restore/Json/floor")->Apply(fewAndMany);

} // namespace
