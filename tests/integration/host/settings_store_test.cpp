#include "HostTest.h"

#include "vconf.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace KLX::Host {
namespace {

struct Freed {
    void operator()(char* text) const { std::free(text); }
};
using OwnedText = std::unique_ptr<char, Freed>;

constexpr auto integerKey = "db/menu/caption/caption";
constexpr auto booleanKey = "db/menu/security/parental-lock";
constexpr auto textKey = "db/menu_widget/language";

int readInteger(const char* key) {
    int value = -1;
    EXPECT_EQ(vconf_get_int(key, &value), success) << key;
    return value;
}

int readBoolean(const char* key) {
    int value = -1;
    EXPECT_EQ(vconf_get_bool(key, &value), success) << key;
    return value;
}

std::string readText(const char* key) {
    const OwnedText text(vconf_get_str(key));
    EXPECT_NE(text, nullptr) << key;
    return text ? text.get() : "";
}

class SettingsStore : public HostTest {};

TEST_F(SettingsStore, ReadsBackAnInteger) {
    for (const int value : {0, 1, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(vconf_set_int(integerKey, value), success);
        EXPECT_EQ(readInteger(integerKey), value);
    }
}

TEST_F(SettingsStore, StoresEveryNumberButZeroAsTrue) {
    EXPECT_EQ(vconf_set_bool(booleanKey, 5), success);
    EXPECT_EQ(readBoolean(booleanKey), 1);
    EXPECT_EQ(vconf_set_bool(booleanKey, 0), success);
    EXPECT_EQ(readBoolean(booleanKey), 0);
}

TEST_F(SettingsStore, ReadsBackATextByteForByte) {
    for (const std::string& text :
         {std::string(), std::string("a"), std::string("\n\t\xff\x01 \xc3\xa4"),
          std::string(1000000, 'x')}) {
        EXPECT_EQ(vconf_set_str(textKey, text.c_str()), success);
        EXPECT_EQ(readText(textKey), text);
    }
}

TEST_F(SettingsStore, AnswersTheDeclaredDefaultUntilSomethingIsWritten) {
    EXPECT_EQ(readInteger("db/menu/caption/autocaptionposition"), 1);
    EXPECT_EQ(readBoolean("db/menu/broadcasting/channel_lock"), 1);
    EXPECT_EQ(readText(textKey), "en_GB.utf8");
    EXPECT_EQ(vconf_set_str(textKey, "de_DE.utf8"), success);
    EXPECT_EQ(readText(textKey), "de_DE.utf8");
}

TEST_F(SettingsStore, KeepsWhatAnotherProcessWrote) {
    EXPECT_EQ(inOwnProcess([] { return vconf_set_int(integerKey, 42); }), success);
    EXPECT_EQ(readInteger(integerKey), 42);
    EXPECT_EQ(inOwnProcess([] { return vconf_set_int(integerKey, 43); }), success);
    EXPECT_EQ(readInteger(integerKey), 43);
}

TEST_F(SettingsStore, AcceptsAKeyThatNobodyDeclaredAndKeepsItsType) {
    EXPECT_EQ(vconf_set_int("db/test/own", 7), success);
    EXPECT_EQ(readInteger("db/test/own"), 7);
    EXPECT_EQ(vconf_set_str("db/test/own", "seven"), numberOf(HostError::WrongType));
    EXPECT_EQ(readInteger("db/test/own"), 7);
}

TEST_F(SettingsStore, RefusesToReadOrWriteAnotherType) {
    int value = 99;
    EXPECT_EQ(vconf_get_int(textKey, &value), numberOf(HostError::WrongType));
    EXPECT_EQ(vconf_get_bool(integerKey, &value), numberOf(HostError::WrongType));
    EXPECT_EQ(vconf_get_int(booleanKey, &value), numberOf(HostError::WrongType));
    EXPECT_EQ(vconf_get_str(integerKey), nullptr);
    EXPECT_EQ(vconf_set_int(textKey, 1), numberOf(HostError::WrongType));
    EXPECT_EQ(vconf_set_str(booleanKey, "1"), numberOf(HostError::WrongType));
    EXPECT_EQ(vconf_set_bool(integerKey, 1), numberOf(HostError::WrongType));
    EXPECT_EQ(value, 99) << "an output was touched";
    EXPECT_EQ(readText(textKey), "en_GB.utf8");
}

TEST_F(SettingsStore, TellsUnknownKeysApartFromImpossibleOnes) {
    int value = 99;
    EXPECT_EQ(vconf_get_int("db/test/unknown", &value), numberOf(HostError::UnknownKey));
    EXPECT_EQ(vconf_get_int("file/test", &value), numberOf(HostError::InvalidKey));
    EXPECT_EQ(vconf_get_int("", &value), numberOf(HostError::InvalidKey));
    EXPECT_EQ(vconf_set_int("system-settings/13", 1), numberOf(HostError::InvalidKey));
    EXPECT_EQ(vconf_get_str("db/test/unknown"), nullptr);
    EXPECT_EQ(value, 99);
}

TEST_F(SettingsStore, RefusesNullPointers) {
    int value = 0;
    EXPECT_EQ(vconf_get_int(nullptr, &value), numberOf(HostError::NullPointer));
    EXPECT_EQ(vconf_get_int(integerKey, nullptr), numberOf(HostError::NullPointer));
    EXPECT_EQ(vconf_get_bool(booleanKey, nullptr), numberOf(HostError::NullPointer));
    EXPECT_EQ(vconf_get_str(nullptr), nullptr);
    EXPECT_EQ(vconf_set_int(nullptr, 1), numberOf(HostError::NullPointer));
    EXPECT_EQ(vconf_set_bool(nullptr, 1), numberOf(HostError::NullPointer));
    EXPECT_EQ(vconf_set_str(nullptr, "x"), numberOf(HostError::NullPointer));
    EXPECT_EQ(vconf_set_str(textKey, nullptr), numberOf(HostError::NullPointer));
}

TEST_F(SettingsStore, TakesKeysOf511BytesAndNoLongerOnes) {
    const std::string longest = "db/" + std::string(508, 'k');
    EXPECT_EQ(vconf_set_int(longest.c_str(), 3), success);
    EXPECT_EQ(readInteger(longest.c_str()), 3);
    const std::string tooLong = longest + 'k';
    EXPECT_EQ(vconf_set_int(tooLong.c_str(), 3), numberOf(HostError::KeyTooLong));
    int value = 0;
    EXPECT_EQ(vconf_get_int(tooLong.c_str(), &value), numberOf(HostError::KeyTooLong));
}

TEST_F(SettingsStore, TellsDefaultsAsTextWithTheirType) {
    struct Row {
        const char* key;
        int type;
        const char* text;
    };
    for (const Row& row : {Row{"db/menu/caption/autocaptionposition", 0, "1"},
                           Row{"db/menu/broadcasting/channel_lock", 1, "1"},
                           Row{booleanKey, 1, "0"}, Row{textKey, 2, "en_GB.utf8"}}) {
        int type = 7;
        char* raw = nullptr;
        EXPECT_EQ(get_vconf_key_default_value(row.key, &type, &raw), 1) << row.key;
        const OwnedText text(raw);
        EXPECT_EQ(type, row.type) << row.key;
        EXPECT_STREQ(text.get(), row.text) << row.key;
    }
}

TEST_F(SettingsStore, TellsTheDefaultAlsoAfterAWrite) {
    ASSERT_EQ(vconf_set_str(textKey, "de_DE.utf8"), success);
    int type = 2;
    char* raw = nullptr;
    EXPECT_EQ(get_vconf_key_default_value(textKey, &type, &raw), 1);
    EXPECT_STREQ(OwnedText(raw).get(), "en_GB.utf8");
}

TEST_F(SettingsStore, HasNoDefaultForAKeyThatIsOnlyWritten) {
    ASSERT_EQ(vconf_set_int("db/test/own", 7), success);
    int type = 0;
    char* text = nullptr;
    EXPECT_EQ(get_vconf_key_default_value("db/test/own", &type, &text),
              numberOf(HostError::UnknownKey));
    EXPECT_EQ(get_vconf_key_default_value(nullptr, &type, &text), numberOf(HostError::NullPointer));
    EXPECT_EQ(get_vconf_key_default_value(textKey, nullptr, &text),
              numberOf(HostError::NullPointer));
    EXPECT_EQ(get_vconf_key_default_value(textKey, &type, nullptr),
              numberOf(HostError::NullPointer));
    EXPECT_EQ(text, nullptr);
}

TEST_F(SettingsStore, TellsNothingAboutCallersMistakesAtTheUsualPriority) {
    const std::string lines = standardErrorOf([] {
        int value = 0;
        vconf_get_int("db/test/unknown", &value);
        vconf_get_int(textKey, &value);
        vconf_get_int(nullptr, &value);
    });
    EXPECT_EQ(lines, "");
}

TEST_F(SettingsStore, ExplainsCallersMistakesAtDebugPriority) {
    ::setenv("KLX_LOG", "debug", 1);
    const std::string lines = standardErrorOf([] {
        int value = 0;
        vconf_get_int(textKey, &value);
    });
    EXPECT_EQ(lines, "debug KLX_HOST: vconf_get_int: \"db/menu_widget/language\" is of type "
                     "string, not int\n");
}

TEST_F(SettingsStore, SharesMemoryKeysWithOtherProcesses) {
    ASSERT_EQ(vconf_set_int("memory/sysman/hdmi1", 0), success);
    EXPECT_EQ(inOwnProcess([] { return readInteger("memory/sysman/hdmi1"); }), 0);
    EXPECT_EQ(inOwnProcess([] { return vconf_set_int("memory/sysman/hdmi1", 2); }), success);
    EXPECT_EQ(readInteger("memory/sysman/hdmi1"), 2);
}

TEST_F(SettingsStore, KeepsMemoryKeysOfEachStateFolderApart) {
    ASSERT_EQ(vconf_set_int("memory/test", 1), success);
    const std::string other = m_folder.path("other");
    EXPECT_EQ(inOwnProcess([&] {
                  ::setenv("KLX_STATE_DIR", other.c_str(), 1);
                  int value = 0;
                  EXPECT_EQ(vconf_get_int("memory/test", &value), numberOf(HostError::UnknownKey));
                  return vconf_set_int("memory/test", 2);
              }),
              success);
    EXPECT_EQ(readInteger("memory/test"), 1);
}

} // namespace
} // namespace KLX::Host
