#include "KLXCommonUtil.h"
#include "LogMatchers.h"
#include "TempFolder.h"
#include "Thrown.h"

#include <gmock/gmock.h>

#include <string>

namespace fake = klx::fake;
using namespace klx::test;
using fake::LineIn;
using ::testing::ElementsAre;

namespace {

class FileHelpersTest : public ::testing::Test {
protected:
    /** What reading a file with this content gives. */
    std::string read(const std::string& content) {
        return KLXCommonUtil::readStrFromFile(folder.fileHolding(content));
    }

    /** The lines of an operation that opened the file and failed afterwards. */
    static auto linesOfFailure(const std::string& operation, const std::string& path,
                               const std::string& failure) {
        return ElementsAre(LineIn("KLXCommonUtil.cpp", 4, operation, "filePath=[" + path + "]"),
                           LineIn("KLXCommonUtil.cpp", 5, operation, failure));
    }

    fake::Scene scene;
    TempFolder folder;
};

TEST_F(FileHelpersTest, ReadsTheFirstWord) {
    EXPECT_EQ(read("abc def\n"), "abc");
}

TEST_F(FileHelpersTest, ReadsAWordWithoutALineFeed) {
    EXPECT_EQ(read("abc"), "abc");
}

TEST_F(FileHelpersTest, SkipsWhiteSpaceInFrontOfTheWord) {
    EXPECT_EQ(read(" \t\r\n\v\fabc\tdef"), "abc");
}

TEST_F(FileHelpersTest, ReadsAnEmptyFileAsNothing) {
    EXPECT_EQ(read(""), "");
}

TEST_F(FileHelpersTest, ReadsAFileOfBlanksAsNothing) {
    EXPECT_EQ(read(" \n\n "), "");
}

TEST_F(FileHelpersTest, ReadsALongWord) {
    const std::string word(1 << 20, 'w');
    EXPECT_EQ(read(word + " rest"), word);
}

TEST_F(FileHelpersTest, ReadsBytesBeyondAscii) {
    EXPECT_EQ(read("caf\xC3\xA9\xFF more"), "caf\xC3\xA9\xFF");
}

TEST_F(FileHelpersTest, ReadingLogsThePathOnly) {
    const std::string path = folder.fileHolding("");
    KLXCommonUtil::readStrFromFile(path);
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("KLXCommonUtil.cpp", 4, "readStrFromFile",
                                                 "filePath=[" + path + "]")));
}

TEST_F(FileHelpersTest, ReadingAMissingFileThrows) {
    const std::string path = folder.pathOf("absent");
    EXPECT_EQ(thrownBy([&] { KLXCommonUtil::readStrFromFile(path); }),
              "file[" + path + "] open failed");
    EXPECT_THAT(fake::logs(), linesOfFailure("readStrFromFile", path, "unknown exception caught"));
}

TEST_F(FileHelpersTest, ReadingAFolderThrows) {
    EXPECT_EQ(thrownBy([&] { KLXCommonUtil::readStrFromFile(folder.path()); }),
              "file[" + folder.path() + "] open failed");
    EXPECT_THAT(fake::logs(),
                linesOfFailure("readStrFromFile", folder.path(), "Error during file open"));
}

TEST_F(FileHelpersTest, ReadingAnEmptyPathThrows) {
    EXPECT_EQ(thrownBy([] { KLXCommonUtil::readStrFromFile(""); }), "file[] open failed");
}

TEST_F(FileHelpersTest, WritesExactlyTheContent) {
    const std::string content("two words\r\n\0\n\n\xFF", 15);
    KLXCommonUtil::writeStrToFile(content, folder.pathOf("new"));
    EXPECT_EQ(contentOf(folder.pathOf("new")), content);
}

TEST_F(FileHelpersTest, AddsNoLineFeed) {
    KLXCommonUtil::writeStrToFile("end", folder.pathOf("new"));
    EXPECT_EQ(contentOf(folder.pathOf("new")), "end");
}

TEST_F(FileHelpersTest, WritesNothingAsAnEmptyFile) {
    KLXCommonUtil::writeStrToFile("", folder.pathOf("new"));
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("new")));
    EXPECT_EQ(contentOf(folder.pathOf("new")), "");
}

TEST_F(FileHelpersTest, OverwritesALongerFileCompletely) {
    const std::string path = folder.fileHolding("much longer than what comes");
    KLXCommonUtil::writeStrToFile("short", path);
    EXPECT_EQ(contentOf(path), "short");
}

TEST_F(FileHelpersTest, WritesMoreThanAStreamBuffers) {
    const std::string content(1 << 20, 'c');
    KLXCommonUtil::writeStrToFile(content, folder.pathOf("new"));
    EXPECT_EQ(contentOf(folder.pathOf("new")), content);
}

TEST_F(FileHelpersTest, WritingLogsThePathOnly) {
    const std::string path = folder.pathOf("new");
    KLXCommonUtil::writeStrToFile("content", path);
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("KLXCommonUtil.cpp", 4, "writeStrToFile",
                                                 "filePath=[" + path + "]")));
}

TEST_F(FileHelpersTest, WritingIntoAMissingFolderThrows) {
    const std::string path = folder.pathOf("absent/new");
    EXPECT_EQ(thrownBy([&] { KLXCommonUtil::writeStrToFile("content", path); }),
              "file[" + path + "] open failed");
    EXPECT_THAT(fake::logs(), linesOfFailure("writeStrToFile", path, "unknown exception caught"));
}

TEST_F(FileHelpersTest, WritingToAFolderThrows) {
    EXPECT_EQ(thrownBy([&] { KLXCommonUtil::writeStrToFile("content", folder.path()); }),
              "file[" + folder.path() + "] open failed");
    EXPECT_THAT(fake::logs(),
                linesOfFailure("writeStrToFile", folder.path(), "unknown exception caught"));
}

TEST_F(FileHelpersTest, WritingALittleToAFullDeviceThrows) {
    EXPECT_EQ(thrownBy([] { KLXCommonUtil::writeStrToFile("content", "/dev/full"); }),
              "file[/dev/full] open failed");
    EXPECT_THAT(fake::logs(),
                linesOfFailure("writeStrToFile", "/dev/full", "Error during file open"));
}

TEST_F(FileHelpersTest, WritingMuchToAFullDeviceThrows) {
    const std::string content(1 << 20, 'c');
    EXPECT_EQ(thrownBy([&] { KLXCommonUtil::writeStrToFile(content, "/dev/full"); }),
              "file[/dev/full] open failed");
    EXPECT_THAT(fake::logs(),
                linesOfFailure("writeStrToFile", "/dev/full", "Error during file open"));
}

} // namespace
