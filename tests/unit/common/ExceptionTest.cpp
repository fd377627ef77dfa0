#include "Exception.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <type_traits>

namespace fake = klx::fake;
using KLX::Exception;
using ::testing::IsEmpty;

namespace {

static_assert(std::is_base_of_v<std::exception, Exception>);
static_assert(std::has_virtual_destructor_v<Exception>);
static_assert(std::is_copy_constructible_v<Exception>);
static_assert(!std::is_copy_assignable_v<Exception> && !std::is_move_assignable_v<Exception>);
static_assert(noexcept(std::declval<const Exception&>().what()));

class ExceptionTest : public ::testing::Test {
protected:
    fake::Scene scene;
};

TEST_F(ExceptionTest, HoldsACText) {
    EXPECT_STREQ(Exception("XML tree has invalid structure").what(),
                 "XML tree has invalid structure");
}

TEST_F(ExceptionTest, HoldsAString) {
    EXPECT_STREQ(Exception(std::string("Regex search failed")).what(), "Regex search failed");
}

TEST_F(ExceptionTest, HoldsAnEmptyText) {
    EXPECT_STREQ(Exception("").what(), "");
    EXPECT_STREQ(Exception(std::string()).what(), "");
}

TEST_F(ExceptionTest, KeepsPercentSignsOfASingleText) {
    EXPECT_STREQ(Exception("100%s of %d %").what(), "100%s of %d %");
    EXPECT_STREQ(Exception(std::string("50% %s")).what(), "50% %s");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(ExceptionTest, SaysOutOfMemoryForANullText) {
    const char* const nothing = nullptr;
    EXPECT_STREQ(Exception(nothing).what(), "Out of memory");
}

TEST_F(ExceptionTest, OwnsItsText) {
    std::string text = "mine";
    const Exception error(text.c_str());
    text = "gone";
    EXPECT_STREQ(error.what(), "mine");
}

TEST_F(ExceptionTest, FormatsACText) {
    EXPECT_STREQ(Exception("Wrong type parameter. type= %s", "float").what(),
                 "Wrong type parameter. type= float");
}

TEST_F(ExceptionTest, FormatsAString) {
    EXPECT_STREQ(Exception("file[%s] open failed", std::string("a.txt")).what(),
                 "file[a.txt] open failed");
}

TEST_F(ExceptionTest, FormatsANumber) {
    EXPECT_STREQ(Exception("Failed, status: %d", -3).what(), "Failed, status: -3");
    EXPECT_STREQ(Exception("ioctl() failed, errno= %d", 25).what(), "ioctl() failed, errno= 25");
}

TEST_F(ExceptionTest, FormatsTheSmallestNumber) {
    EXPECT_STREQ(Exception("%d", -2147483647 - 1).what(), "-2147483648");
}

TEST_F(ExceptionTest, KeepsPercentSignsOfAnArgument) {
    EXPECT_STREQ(Exception("file[%s] open failed", "50%d%s%").what(), "file[50%d%s%] open failed");
}

TEST_F(ExceptionTest, TurnsADoubledPercentSignOfAFormatIntoOne) {
    EXPECT_STREQ(Exception("%d%%", 7).what(), "7%");
}

TEST_F(ExceptionTest, FormatsANullArgumentAsNothing) {
    const char* const nothing = nullptr;
    EXPECT_STREQ(Exception("file[%s] open failed", nothing).what(), "file[] open failed");
}

TEST_F(ExceptionTest, FormatsALongText) {
    const std::string name(1 << 20, 'n');
    EXPECT_EQ(Exception("[%s]", name).what(), "[" + name + "]");
}

TEST_F(ExceptionTest, LogsNothingWhenAllIsWell) {
    const Exception plain("plain");
    const Exception formatted("%s", "formatted");
    const Exception copy(formatted);
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(ExceptionTest, IsCaughtAsAStandardException) {
    try {
        throw Exception("file[%s] open failed", "b.txt");
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "file[b.txt] open failed");
    }
}

TEST_F(ExceptionTest, IsDestroyedThroughItsBase) {
    const std::unique_ptr<std::exception> error = std::make_unique<Exception>("owned");
    EXPECT_STREQ(error->what(), "owned");
}

TEST_F(ExceptionTest, CopyOutlivesItsOriginal) {
    auto original = std::make_unique<Exception>("lasting");
    const Exception copy(*original);
    EXPECT_NE(static_cast<const void*>(copy.what()), original->what());
    original.reset();
    EXPECT_STREQ(copy.what(), "lasting");
}

TEST_F(ExceptionTest, CopyOfANullMessageOwnsTheTextOutOfMemory) {
    const char* const nothing = nullptr;
    auto original = std::make_unique<Exception>(nothing);
    const Exception copy(*original);
    EXPECT_NE(static_cast<const void*>(copy.what()), original->what());
    original.reset();
    EXPECT_STREQ(copy.what(), "Out of memory");
}

class Renamed : public Exception {
public:
    Renamed() : Exception("kept inside") {}
    char const* what() const noexcept override { return "told outside"; }
};

TEST_F(ExceptionTest, CopyTakesWhatTheOtherTells) {
    const Renamed original;
    const Exception copy(original);
    EXPECT_STREQ(copy.what(), "told outside");
}

} // namespace
