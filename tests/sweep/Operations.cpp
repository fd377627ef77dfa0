#include "Operations.h"

#include "CpuInfo.h"
#include "DeviceInfoManager.h"
#include "KnowingScene.h"

#include <ostream>
#include <utility>

namespace klx::test {
namespace {

using Request = std::map<std::string, std::list<std::string>>;

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;
using Format = CDeviceInfoManager::DataFormatType;

struct Name {
    explicit Name(const std::string& path)
        : menu(path.substr(1, path.find('/', 1) - 1)), property(path.substr(menu.size() + 2)) {}

    std::string menu;
    std::string property;
};

PreparedCall reading(const std::string& path) {
    return [name = Name(path)](Answer& answer) mutable {
        answer.done = CDeviceInfoManager::GetDevicePropertyValue(
            std::move(name.menu), std::move(name.property), answer.text);
    };
}

PreparedCall writing(const std::string& path) {
    return [name = Name(path), value = anotherValue(path)](Answer& answer) mutable {
        answer.done = CDeviceInfoManager::SetDevicePropertyValue(
            std::move(name.menu), std::move(name.property), std::move(value));
    };
}

PreparedCall dumping(Request request, Format format, std::string file = "") {
    return [request = std::move(request), format, file = std::move(file)](Answer& answer) mutable {
        answer.done = CDeviceInfoManager::GetDeviceInfo(std::move(request), answer.text,
                                                        std::move(file), format);
    };
}

PreparedCall restoring(std::string document, Format format) {
    return [document = std::move(document), format](Answer& answer) mutable {
        answer.done = CDeviceInfoManager::SetDeviceInfo(std::move(document), format);
    };
}

Request onlyThat(const std::string& path) {
    const Name name(path);
    return {{name.menu, {name.property}}};
}

Request everything() {
    Request request;
    for (const std::string& path : allPaths()) {
        request[Name(path).menu] = {"*"};
    }
    return request;
}

std::string documentOf(const Request& request, Format format) {
    Answer answer;
    dumping(request, format)(answer);
    return answer.text;
}

/** The property's document when it has the other value. */
std::string changedDocument(const std::string& path, Format format) {
    const std::string before = valueOf(path);
    change(path, anotherValue(path));
    std::string document = documentOf(onlyThat(path), format);
    change(path, before);
    return document;
}

template <Format format>
PreparedCall dumpingIt(const std::string& path) {
    return dumping(onlyThat(path), format);
}

template <Format format>
PreparedCall restoringIt(const std::string& path) {
    return restoring(changedDocument(path, format), format);
}

template <Format format>
PreparedCall dumpingAll(const std::string&) {
    return dumping(everything(), format);
}

template <Format format>
PreparedCall restoringAll(const std::string&) {
    return restoring(documentOf(everything(), format), format);
}

PreparedCall initializing(const std::string&) {
    return [](Answer& answer) {
        answer.done = CDeviceInfoManager::Initialize();
    };
}

PreparedCall describing(const std::string&) {
    return [](Answer& answer) {
        std::vector<PropertyDescription> properties;
        answer.done = CDeviceInfoManager::DescribeProperties(properties);
    };
}

PreparedCall listingInputs(const std::string&) {
    return [](Answer& answer) {
        std::vector<InputDevice> devices;
        answer.done = CDeviceInfoManager::ListInputDevices(devices);
    };
}

template <class Ask>
PreparedCall diagnosing(Ask ask) {
    return [ask](Answer& answer) {
        answer.done = ask() == 1;
    };
}

PreparedCall readingFeature(std::string name, std::string type) {
    return [name = std::move(name), type = std::move(type)](Answer& answer) mutable {
        answer.text = CDeviceInfoManager::getFMSvalue(std::move(name), std::move(type));
        answer.done = !answer.text.empty();
    };
}

PreparedCall settingFeature(const std::string&) {
    return [key = std::string("com.velmora/featureconf/some_feature"),
            value = std::string("a value of more than a few letters")](Answer& answer) mutable {
        CDeviceInfoManager::setFMSvalue(std::move(key), std::move(value));
        answer.done = true;
    };
}

} // namespace

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

std::string valueOf(const std::string& path) {
    Answer answer;
    reading(path)(answer);
    return answer.text;
}

void change(const std::string& path, const std::string& value) {
    Name name(path);
    CDeviceInfoManager::SetDevicePropertyValue(name.menu, name.property, value);
}

std::vector<Operation> operationsOnAProperty() {
    return {
        {"Get", &reading, false},
        {"Set", &writing, true},
        {"DumpXml", &dumpingIt<xml>, false},
        {"DumpJson", &dumpingIt<json>, false},
        {"RestoreXml", &restoringIt<xml>, true},
        {"RestoreJson", &restoringIt<json>, true},
    };
}

std::vector<Operation> otherOperations() {
    return {
        {"Initialize", &initializing, false},
        {"DescribeProperties", &describing, false},
        {"ListInputDevices", &listingInputs, false},
        {"GetUnknown",
         [](const std::string&) { return reading("/No such menu at all/No such property"); },
         false},
        {"GetUsbDetail", [](const std::string&) { return reading("/Input/USB attached/vendor"); },
         false},
        {"SetUnknown",
         [](const std::string&) { return writing("/No such menu at all/No such property"); },
         false},
        {"DumpUnknownFormat",
         [](const std::string&) { return dumping({}, static_cast<Format>(2)); }, false},
        {"RestoreUnknownFormat",
         [](const std::string&) {
             return restoring("a document of no format at all", static_cast<Format>(2));
         },
         false},
        {"RestoreNothing", [](const std::string&) { return restoring("", xml); }, false},
        {"RestoreBrokenXml",
         [](const std::string&) {
             return restoring("<rm_as version=\"2.5\"><deviceInfo><menu></deviceInfo></rm_as>",
                              xml);
         },
         false},
        {"RestoreBrokenJson",
         [](const std::string&) {
             return restoring("{\"Picture\": {\"Picture Mode\": {\"Value\": }}}", json);
         },
         false},
        {"GetTextFeature", [](const std::string&) { return readingFeature(textFeature, "string"); },
         false},
        {"GetNumberFeature",
         [](const std::string&) { return readingFeature(numberFeature, "int"); }, false},
        {"SetFeature", &settingFeature, false},
        {"GetCpuInfo",
         [](const std::string&) {
             return diagnosing([] {
                 CPU_INFO info{};
                 return CDeviceInfoManager::getCPUInfo(info);
             });
         },
         false},
        {"GetCpuUsage",
         [](const std::string&) {
             return diagnosing([] {
                 int usage = 0;
                 return CDeviceInfoManager::getCPUusage(usage);
             });
         },
         false},
        {"GetMemInfo",
         [](const std::string&) {
             return diagnosing([] {
                 long long free = 0;
                 long long used = 0;
                 long long total = 0;
                 return CDeviceInfoManager::getMemInfo(free, used, total);
             });
         },
         false},
        {"GetMemoryUsage",
         [](const std::string&) {
             return diagnosing([] {
                 long long used = 0;
                 return CDeviceInfoManager::getMemoryUsage(used);
             });
         },
         false},
    };
}

std::vector<Operation> operationsOnAll() {
    return {
        {"DumpEveryCategory",
         [](const std::string&) {
             return dumping({{"*", {}}}, xml);
         },
         false},
        {"DumpAllXml", &dumpingAll<xml>, false},
        {"DumpAllJson", &dumpingAll<json>, false},
        {"RestoreAllXml", &restoringAll<xml>, false},
        {"RestoreAllJson", &restoringAll<json>, false},
    };
}

} // namespace klx::test
