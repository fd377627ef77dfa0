#include "Worker.h"

#include "CpuInfo.h"
#include "DeviceInfoManager.h"
#include "Documents.h"
#include "vconf.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <thread>

namespace klx::test {
namespace {

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;
using Format = CDeviceInfoManager::DataFormatType;

constexpr auto sharedText = "/Broadcasting/Service Provider";
constexpr int finalWrite = 1'000'001;
/** What a document has to hold, the properties that only XML shows apart. */
constexpr std::size_t allProperties = 122;
constexpr std::size_t portsWithoutNumber = 5;

struct Name {
    explicit Name(const std::string& path)
        : menu(path.substr(1, path.find('/', 1) - 1)), property(path.substr(menu.size() + 2)) {}

    std::string menu;
    std::string property;
};

std::string valueOf(const std::string& path) {
    const Name name(path);
    std::string value = "nothing was read";
    EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue(name.menu, name.property, value));
    return value;
}

void write(const std::string& path, const std::string& value) {
    const Name name(path);
    EXPECT_TRUE(CDeviceInfoManager::SetDevicePropertyValue(name.menu, name.property, value));
}

/** Category by category, since "*" leaves out "Connection". */
std::string documentOfAll(Format format) {
    std::string document;
    EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo({{"Broadcasting", {"*"}},
                                                   {"Connection", {"*"}},
                                                   {"Factory", {"*"}},
                                                   {"General & Privacy", {"*"}},
                                                   {"General", {"*"}},
                                                   {"Input", {"*"}},
                                                   {"Network", {"*"}},
                                                   {"Picture", {"*"}},
                                                   {"SetInformation", {"*"}},
                                                   {"Sound", {"*"}},
                                                   {"Support", {"*"}},
                                                   {"SystemInformation", {"*"}}},
                                                  document, "", format));
    return document;
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        if (character == '&' || character == '<') {
            result += character == '&' ? "&amp;" : "&lt;";
        } else {
            result += character;
        }
    }
    return result;
}

/** The elements of a path, the menu's first. */
std::string xmlElements(const std::string& path, const std::string& value) {
    std::string begin;
    std::string end;
    std::size_t at = 0;
    while (at != std::string::npos) {
        const std::size_t next = path.find('/', at + 1);
        const std::string name = escaped(path.substr(at + 1, next - at - 1));
        const std::string kind = at == 0 ? "menu" : "property";
        const bool isLeaf = next == std::string::npos;
        begin += "<" + kind + " name=\"" + name + "\"";
        begin += isLeaf ? " default=\"\" value=\"" + escaped(value) + "\">" : ">";
        end.insert(0, "</" + kind + ">");
        at = next;
    }
    return begin + end;
}

using Values = std::vector<std::pair<std::string, std::string>>;

std::string xmlDocument(const Values& values) {
    std::string elements;
    for (const auto& [path, value] : values) {
        elements += xmlElements(path, value);
    }
    return "<rm_as version=\"2.5\"><deviceInfo devicetype=\"TV\">" + elements +
           "</deviceInfo></rm_as>";
}

std::string jsonDocument(const Values& values) {
    Json::Value root(Json::objectValue);
    for (const auto& [path, value] : values) {
        const Name name(path);
        root[name.menu][name.property]["Value"] = value;
    }
    return Json::writeString(Json::StreamWriterBuilder(), root);
}

/** One letter over and over, whoever wrote it. */
bool isWhole(const std::string& text) {
    return text.find_first_not_of(text[0]) == std::string::npos;
}

OwnedSetting keyOf(int number) {
    return {"db/load/client" + std::to_string(number), OwnedSetting::Kind::text};
}

std::string textOf(const OwnedSetting& key) {
    const std::unique_ptr<char, void (*)(void*)> text(vconf_get_str(key.path.c_str()), std::free);
    return text ? text.get() : "nothing was read";
}

} // namespace

Worker::Worker(int number, int workers) : m_number(number), m_key(keyOf(number)) {
    const auto& settings = independentSettings();
    for (std::size_t i = 0; i < settings.size(); ++i) {
        if (static_cast<int>(i) % workers == number) {
            m_owned.push_back(settings[i]);
        }
    }
}

void Worker::makeFirstCall() {
    switch (m_number % 5) {
    case 0:
        EXPECT_TRUE(CDeviceInfoManager::Initialize());
        break;
    case 1:
        writeOwn();
        break;
    case 2:
        restoreOwn(m_number % 2 == 0);
        break;
    case 3:
        EXPECT_FALSE(documentOfAll(m_number % 2 == 0 ? xml : json).empty());
        break;
    default:
        valueOf(sharedText);
    }
    writeOwn();
    writeShared();
}

void Worker::workUntil(std::chrono::steady_clock::time_point end) {
    for (int round = m_number; std::chrono::steady_clock::now() < end; ++round) {
        if (::testing::Test::HasFailure()) {
            return;
        }
        work(round);
    }
}

void Worker::work(int round) {
    switch (round % 8) {
    case 0:
    case 1:
        writeOwn();
        break;
    case 2:
    case 3:
        restoreOwn(round % 2 == 0);
        break;
    case 4:
    case 5:
        dumpAll(round % 2 == 0);
        break;
    case 6:
        writeShared();
        break;
    default:
        diagnose(round);
    }
    expectOwnValues();
}

void Worker::writeOwn() {
    ++m_writes;
    for (const OwnedSetting& setting : m_owned) {
        write(setting.path, setting.valueFor(m_writes));
    }
    writeKey();
}

void Worker::writeKey() const {
    EXPECT_EQ(vconf_set_str(m_key.path.c_str(), m_key.valueFor(m_writes).c_str()), 0);
}

void Worker::writeShared() const {
    const auto letter = static_cast<char>('A' + m_number % 26);
    write(sharedText, std::string(static_cast<std::size_t>(1 + m_writes % 300), letter));
    const std::string text = valueOf(sharedText);
    EXPECT_TRUE(isWhole(text)) << text;
}

void Worker::restoreOwn(bool asXml) {
    ++m_writes;
    Values values;
    for (const OwnedSetting& setting : m_owned) {
        values.emplace_back(setting.path, setting.valueFor(m_writes));
    }
    EXPECT_TRUE(CDeviceInfoManager::SetDeviceInfo(
        asXml ? xmlDocument(values) : jsonDocument(values), asXml ? xml : json));
    writeKey();
}

void Worker::dumpAll(bool asXml) const {
    const std::string document = documentOfAll(asXml ? xml : json);
    const Entries entries = entriesOf(document);
    EXPECT_EQ(entries.size(), asXml ? allProperties : allProperties - portsWithoutNumber);
    for (const OwnedSetting& setting : m_owned) {
        const auto entry = entries.find(setting.path);
        ASSERT_NE(entry, entries.end()) << setting.path;
        EXPECT_EQ(entry->second.value, setting.valueFor(m_writes)) << setting.path;
    }
}

void Worker::diagnose(int round) const {
    CPU_INFO info{};
    EXPECT_EQ(CDeviceInfoManager::getCPUInfo(info), 1);
    long long free = -1;
    long long used = -1;
    long long total = -1;
    EXPECT_EQ(CDeviceInfoManager::getMemInfo(free, used, total), 1);
    EXPECT_EQ(total, free + used);
    EXPECT_EQ(CDeviceInfoManager::getMemoryUsage(used), 1);
    CDeviceInfoManager::getFMSvalue("com.velmora/featureconf/product.product_type", "int");
    // It takes a second, so it is not for everybody.
    if (m_number == 0 && round % 16 == 15) {
        int usage = -1;
        EXPECT_EQ(CDeviceInfoManager::getCPUusage(usage), 1);
    }
}

void Worker::expectOwnValues() const {
    for (const OwnedSetting& setting : m_owned) {
        EXPECT_EQ(valueOf(setting.path), setting.valueFor(m_writes)) << setting.path;
    }
    EXPECT_EQ(textOf(m_key), m_key.valueFor(m_writes)) << m_key.path;
}

void Worker::writeFinalValues() {
    m_writes = finalWrite - 1;
    writeOwn();
}

void Worker::expectFinalValues(int workers) {
    for (const OwnedSetting& setting : independentSettings()) {
        EXPECT_EQ(valueOf(setting.path), setting.valueFor(finalWrite)) << setting.path;
    }
    for (int number = 0; number < workers; ++number) {
        const OwnedSetting key = keyOf(number);
        EXPECT_EQ(textOf(key), key.valueFor(finalWrite)) << key.path;
    }
}

std::chrono::seconds loadTime() {
    const char* const text = std::getenv("KLX_LOAD_SECONDS");
    constexpr int usual = 2;
    return std::chrono::seconds(text != nullptr ? std::atoi(text) : usual);
}

void workTogether(std::vector<Worker>& workers) {
    std::atomic<std::size_t> waiting{workers.size()};
    std::vector<std::thread> threads;
    for (Worker& worker : workers) {
        threads.emplace_back([&waiting, &worker] {
            for (--waiting; waiting > 0;) {
                std::this_thread::yield();
            }
            worker.makeFirstCall();
            worker.workUntil(std::chrono::steady_clock::now() + loadTime());
            worker.writeFinalValues();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace klx::test
