#include "HostTest.h"
#include "StoreCalls.h"

#include <lmdb.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace KLX::Host {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr auto key = "db/menu/caption/caption";
constexpr int texts = 100;

std::string textKey(int i) {
    return "db/text" + std::to_string(i);
}

std::string textFor(int i) {
    return std::string(static_cast<std::size_t>(i % 9 == 0 ? 9000 : 30 + i),
                       static_cast<char>('a' + i % 26));
}

class Damage : public HostTest {
protected:
    using HostTest::HostTest;

    /** The bytes of a store with texts of every length. */
    std::string goodStore() const {
        EXPECT_EQ(inOwnProcess([] {
                      for (int i = 0; i < texts; ++i) {
                          EXPECT_EQ(setText(textKey(i), textFor(i)), success);
                      }
                      return setInteger(key, 7);
                  }),
                  success);
        return contentOf(dataFile());
    }

    /** What is said about the store as it is now; every call has to fail with that error. */
    std::string refusal(HostError error) const {
        const std::string before = fs::is_regular_file(dataFile()) ? contentOf(dataFile()) : "";
        const std::string lines = standardErrorOf([&] {
            EXPECT_EQ(integerOr(key), numberOf(error));
            EXPECT_EQ(setInteger(key, 8), numberOf(error));
            EXPECT_EQ(integerOr("db/menu/caption/captionmode"), numberOf(error));
        });
        EXPECT_EQ(linesIn(lines), 1) << lines;
        EXPECT_THAT(lines, HasSubstr(dataFile() + ": "));
        EXPECT_THAT(lines, HasSubstr("move it away to start from the defaults"));
        if (fs::is_regular_file(dataFile())) {
            EXPECT_EQ(contentOf(dataFile()), before) << "somebody's settings were touched";
        }
        return lines;
    }
};

/** Reads everything and writes some of it; 0 when all of it was right, 1 when it was refused, 2
 * when wrong. */
int useStore() {
    int status = 0;
    for (int i = 0; i < texts; ++i) {
        const std::string text = textOf(textKey(i));
        if (text == "(failed)") {
            status = 1;
        } else if (text != textFor(i)) {
            return 2;
        }
    }
    // Each write waits for the disk, and a few touch every part of the tree.
    for (int i = 0; i < texts; i += 50) {
        if (setText(textKey(i), textFor(texts - i)) != success) {
            status = 1;
        }
    }
    return status;
}

TEST_F(Damage, ByCuttingOffIsFoundAtEveryLength) {
    const std::string good = goodStore();
    for (std::size_t length = 0; length < good.size(); length += 4093) {
        writeFile(dataFile(), good.substr(0, length));
        const int status = inOwnProcess([] {
            int result = 0;
            standardErrorOf([&] { result = useStore(); });
            return result;
        });
        // The file may end in pages that are free; nobody misses them.
        const bool mayBeWhole = length >= good.size() / 2;
        EXPECT_TRUE(status == 1 || (mayBeWhole && status == 0)) << length << ": " << status;
    }
}

TEST_F(Damage, ByCuttingOffIsReported) {
    const std::string good = goodStore();
    writeFile(dataFile(), good.substr(0, good.size() / 2));
    EXPECT_THAT(refusal(HostError::StoreCorrupt), HasSubstr("is cut off"));
}

TEST_F(Damage, ToNothingAtAllIsNotTakenForANewStore) {
    goodStore();
    writeFile(dataFile(), "");
    EXPECT_THAT(refusal(HostError::StoreCorrupt), HasSubstr("is cut off"));
}

/** A folder in memory where there is one with room: nothing there waits for a disk. */
std::string quickFolder() {
    constexpr std::uintmax_t room = 32 << 20;
    const std::string shared = "/dev/shm/";
    std::error_code none;
    const bool isFit = ::access(shared.c_str(), W_OK | X_OK) == 0 &&
                       fs::space(shared, none).available >= room && !none;
    return isFit ? shared : ::testing::TempDir();
}

/**
 * Stores that are damaged at random. The platform looks again and again at one whose header is
 * damaged, and most of that is waiting; so several are used at once.
 */
class RandomDamage : public Damage {
protected:
    static constexpr int atOnce = 10;

    RandomDamage() : Damage(quickFolder()) {}

    std::string damaged(std::string bytes, int round) {
        const bool inHeader = round % 3 == 0;
        const std::size_t at = inHeader ? upTo(1) * 4096 + upTo(170) : upTo(bytes.size() - 1);
        const std::size_t end = std::min(bytes.size(), at + 1 + upTo(round % 2 == 0 ? 8 : 600));
        for (std::size_t i = at; i < end; ++i) {
            bytes[i] = static_cast<char>(upTo(255));
        }
        return bytes;
    }

    /** Lets a process of its own use a store of these bytes. */
    std::unique_ptr<ChildProcess> userOf(const std::string& bytes, int round) const {
        const std::string folder = m_folder.path("damaged" + std::to_string(round % atOnce));
        fs::create_directory(folder);
        fs::permissions(folder, fs::perms::owner_all);
        writeFile(folder + "/settings.mdb", bytes);
        return std::make_unique<ChildProcess>([folder] {
            ::setenv("KLX_STATE_DIR", folder.c_str(), 1);
            int result = 0;
            standardErrorOf([&] { result = useStore(); });
            return result;
        });
    }

private:
    std::size_t upTo(std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(m_random);
    }

    std::mt19937 m_random{7};
};

TEST_F(RandomDamage, NeverCrashesAndNeverGivesAWrongValue) {
    const std::string good = goodStore();
    int refused = 0;
    for (int first = 0; first < 250; first += atOnce) {
        std::vector<std::unique_ptr<ChildProcess>> users;
        for (int round = first; round < first + atOnce; ++round) {
            users.push_back(userOf(damaged(good, round), round));
        }
        for (const auto& user : users) {
            const int status = user->wait();
            EXPECT_TRUE(status == 0 || status == 1) << "after round " << first << ": " << status;
            refused += status == 1 ? 1 : 0;
        }
    }
    EXPECT_GT(refused, 60);
}

TEST_F(Damage, ThatIsRepairedNeedsNoRestart) {
    const std::string good = goodStore();
    writeFile(dataFile(), good.substr(0, good.size() / 2));
    refusal(HostError::StoreCorrupt);
    writeFile(dataFile(), good);
    EXPECT_EQ(integerOr(key), 7);
    EXPECT_EQ(setInteger(key, 8), success);
}

TEST_F(Damage, ThatHappensWhileTheStoreIsOpenIsFoundInTime) {
    const std::string good = goodStore();
    ASSERT_EQ(integerOr(key), 7);
    fs::resize_file(dataFile(), 8192);
    refusal(HostError::StoreCorrupt);
    fs::resize_file(dataFile(), 0);
    refusal(HostError::StoreCorrupt);
    writeFile(dataFile(), good);
    EXPECT_EQ(integerOr(key), 7);
}

TEST_F(Damage, IsNotAssumedOfAStoreOfTheOtherWordSize) {
    goodStore();
    constexpr std::uint32_t magic = 0xBEEFC0DE;
    // There the page header has one pointer of the other size in front.
    constexpr std::size_t magicAt = sizeof(void*) == 8 ? 12 : 16;
    std::string foreign(16384, '\0');
    std::memcpy(&foreign[magicAt], &magic, sizeof magic);
    writeFile(dataFile(), foreign);
    const std::string lines = refusal(HostError::StoreForeign);
    EXPECT_THAT(lines, HasSubstr(sizeof(void*) == 8 ? "was written by a 32-bit build"
                                                    : "was written by a 64-bit build"));
    EXPECT_THAT(lines, HasSubstr("use the build that wrote it"));
}

TEST_F(Damage, IsNotAssumedOfAStoreOfTheOtherByteOrder) {
    goodStore();
    constexpr std::uint32_t swappedMagic = 0xDEC0EFBE;
    std::string foreign(16384, '\0');
    std::memcpy(&foreign[sizeof(void*) + 8], &swappedMagic, sizeof swappedMagic);
    writeFile(dataFile(), foreign);
    EXPECT_THAT(refusal(HostError::StoreForeign), HasSubstr("the other byte order"));
}

TEST_F(Damage, IsFoundInAFileOfAnotherKind) {
    goodStore();
    writeFile(dataFile(), std::string(20000, '#'));
    EXPECT_THAT(refusal(HostError::StoreCorrupt), HasSubstr("does not begin like a store"));
}

TEST_F(Damage, IsFoundInAnLmdbFileOfAnotherProgram) {
    goodStore();
    fs::remove(dataFile());
    MDB_env* environment = nullptr;
    MDB_txn* transaction = nullptr;
    MDB_dbi database = 0;
    char text[] = "text";
    MDB_val value{sizeof text, text};
    ASSERT_EQ(mdb_env_create(&environment), MDB_SUCCESS);
    ASSERT_EQ(mdb_env_open(environment, dataFile().c_str(), MDB_NOSUBDIR, 0600), MDB_SUCCESS);
    ASSERT_EQ(mdb_txn_begin(environment, nullptr, 0, &transaction), MDB_SUCCESS);
    ASSERT_EQ(mdb_dbi_open(transaction, nullptr, 0, &database), MDB_SUCCESS);
    ASSERT_EQ(mdb_put(transaction, database, &value, &value, 0), MDB_SUCCESS);
    ASSERT_EQ(mdb_txn_commit(transaction), MDB_SUCCESS);
    mdb_env_close(environment);
    refusal(HostError::StoreCorrupt);
}

TEST_F(Damage, IsFoundWhereTheFileIsAPipe) {
    goodStore();
    fs::remove(dataFile());
    ASSERT_EQ(::mkfifo(dataFile().c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_THAT(refusal(HostError::StoreForeign), HasSubstr("is not a file"));
}

TEST_F(Damage, IsFoundWhereTheFileIsAFolder) {
    goodStore();
    fs::remove(dataFile());
    fs::create_directory(dataFile());
    EXPECT_THAT(refusal(HostError::StoreForeign), HasSubstr("is not a file"));
}

} // namespace
} // namespace KLX::Host
