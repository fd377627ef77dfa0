#include "HostTest.h"
#include "Program.h"
#include "StoreCalls.h"

#include <sys/wait.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace KLX::Host {
namespace {

using ::testing::HasSubstr;

constexpr auto key = "db/menu/caption/caption";
constexpr std::size_t mebibyte = std::size_t{1} << 20U;

class Map : public HostTest {
protected:
    void useSmallMap() { ::setenv("KLX_HOST_MAP_SIZE", std::to_string(mebibyte).c_str(), 1); }

    std::uintmax_t fileSize() const { return std::filesystem::file_size(dataFile()); }

    static void rewrite(int times) {
        for (int i = 0; i < times; ++i) {
            ASSERT_EQ(setText("db/text", std::string(60000, static_cast<char>('a' + i % 26))),
                      success);
        }
    }
};

void expectTooLong(std::size_t length) {
    EXPECT_EQ(setInteger(key, 7), success);
    const std::string lines = standardErrorOf([&] {
        EXPECT_EQ(setText("db/long", std::string(length, 'x')), numberOf(HostError::ValueTooLong));
        EXPECT_EQ(setText("db/long", std::string(length, 'x')), numberOf(HostError::ValueTooLong));
    });
    EXPECT_EQ(linesIn(lines), 1) << lines;
    EXPECT_THAT(lines, HasSubstr("settings.mdb: the value of \"db/long\""));
    EXPECT_THAT(lines, HasSubstr("store a shorter text"));
    EXPECT_EQ(textOf("db/long"), "(failed)");
    EXPECT_EQ(integerOr(key), 7);
}

TEST_F(Map, RefusesAValueThatIsLongerThanItself) {
    useSmallMap();
    expectTooLong(2 * mebibyte);
}

TEST_F(Map, OfTheUsualSizeRefusesAValueOf65Mebibytes) {
    expectTooLong(65 * mebibyte);
}

TEST_F(Map, IsNoLargerThanTheLargestWhateverIsAskedFor) {
    for (const char* size : {"20000000000", "-1"}) {
        ::setenv("KLX_HOST_MAP_SIZE", size, 1);
        EXPECT_EQ(inOwnProcess([] { return setInteger(key, 7); }), success) << size;
    }
}

TEST_F(Map, GrowsForAValueThatIsNearlyAsLong) {
    useSmallMap();
    const std::string text(mebibyte - 100, 'x');
    EXPECT_EQ(setText("db/long", text), success);
    EXPECT_EQ(textOf("db/long"), text);
}

TEST_F(Map, GrowsWhenItIsFullAlsoForAProcessThatKnewItSmall) {
    useSmallMap();
    ASSERT_EQ(inOwnProcess([] { return setInteger(key, 7); }), success);
    const std::string text(100000, 'x');
    ChildProcess witness([&] {
        EXPECT_EQ(integerOr(key), 7);
        ::raise(SIGSTOP);
        EXPECT_EQ(textOf("db/text79"), text);
        return setInteger(key, 8);
    });
    int status = 0;
    ::waitpid(witness.id(), &status, WUNTRACED);
    ASSERT_TRUE(WIFSTOPPED(status));
    for (int i = 0; i < 80; ++i) {
        ASSERT_EQ(setText("db/text" + std::to_string(i), text), success);
    }
    EXPECT_GT(fileSize(), 7 * mebibyte);
    witness.kill(SIGCONT);
    EXPECT_EQ(witness.wait(), success);
    EXPECT_EQ(integerOr(key), 8);
}

TEST_F(Map, GrowsWhileAPausedReaderHoldsOldPagesAndStopsWhenItIsGone) {
    useSmallMap();
    rewrite(1);
    Program reader(KLX_FAULT_READER, {dataFile(), "1"});
    ASSERT_TRUE(reader.waitForOutput());
    rewrite(60);
    const std::uintmax_t grown = fileSize();
    EXPECT_GT(grown, 3 * mebibyte) << "the reader held nothing";
    reader.kill();
    rewrite(60);
    EXPECT_LE(fileSize(), grown + mebibyte / 4) << "the killed reader still holds pages";
}

TEST_F(Map, IsReadAgainOnceTheReadersThatTookEverySlotAreKilled) {
    ASSERT_EQ(setInteger(key, 7), success);
    Program readers(KLX_FAULT_READER, {dataFile(), "0"});
    ASSERT_TRUE(readers.waitForOutput());
    const std::string lines = standardErrorOf([] {
        EXPECT_EQ(integerOr(key), numberOf(HostError::TooManyReaders));
        EXPECT_EQ(integerOr(key), numberOf(HostError::TooManyReaders));
    });
    EXPECT_EQ(linesIn(lines), 1) << lines;
    EXPECT_THAT(lines, HasSubstr("end some of the processes that read it"));
    EXPECT_EQ(setInteger(key, 8), success) << "writers need no slot";
    readers.kill();
    EXPECT_EQ(integerOr(key), 8);
}

} // namespace
} // namespace KLX::Host
