#include "ManagerTest.h"
#include "TempFolder.h"

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;

namespace {

/** Documents that are written to a file as well. */
class DocumentFileTest : public ManagerTest {
protected:
    DocumentFileTest() {
        use({{"/A/p", recordWithDefault("d", answering("caf\xC3\xA9"))}});
        expected = documentFor({{"A", {"p"}}});
        fake::clearHistory();
    }

    bool queryInto(const std::string& path) {
        return CDeviceInfoManager::GetDeviceInfo({{"A", {"p"}}}, data, path,
                                                 CDeviceInfoManager::DATA_FORMAT_XML);
    }

    /** Queries into a file that cannot be written; the helper tells how it failed. */
    void expectFailure(const std::string& path, const std::string& line) {
        EXPECT_FALSE(queryInto(path));
        EXPECT_EQ(data, expected);
        const std::string message = "exception occured =[file[" + path + "] open failed]";
        EXPECT_THAT(fake::messages(5), ElementsAre(line, message));
        EXPECT_THAT(fake::logs(), Contains(managerLine(5, "GetDeviceInfo", message)));
        EXPECT_THAT(fake::logs(),
                    Contains(fake::LineIn("KLXCommonUtil.cpp", 5, "writeStrToFile", line)));
    }

    TempFolder folder;
    std::string expected;
    std::string data;
};

TEST_F(DocumentFileTest, FileHoldsExactlyTheDocument) {
    EXPECT_TRUE(queryInto(folder.pathOf("document.xml")));
    EXPECT_EQ(data, expected);
    EXPECT_EQ(contentOf(folder.pathOf("document.xml")), expected);
}

TEST_F(DocumentFileTest, FileIsReplaced) {
    const std::string path = folder.fileHolding(std::string(10000, 'x'));
    EXPECT_TRUE(queryInto(path));
    EXPECT_EQ(contentOf(path), expected);
}

TEST_F(DocumentFileTest, SizeInBytesAndPathAreLogged) {
    const std::string path = folder.pathOf("document.xml");
    EXPECT_TRUE(queryInto(path));
    EXPECT_THAT(fake::logs(), Contains(managerLine(4, "GetDeviceInfo",
                                                   "dataSize=[" + std::to_string(expected.size()) +
                                                       "] filePath = [" + path + "]")));
    EXPECT_THAT(fake::messages(4), ElementsAre("GetDeviceInfo retDataFormat = [1]",
                                               "dataSize=[" + std::to_string(expected.size()) +
                                                   "] filePath = [" + path + "]",
                                               "filePath=[" + path + "]"));
}

TEST_F(DocumentFileTest, NoFileIsWrittenForAnEmptyPath) {
    EXPECT_TRUE(queryInto(""));
    EXPECT_THAT(fake::messages(4), ElementsAre("GetDeviceInfo retDataFormat = [1]"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(DocumentFileTest, FileThatCannotBeOpenedFailsTheQuery) {
    expectFailure(folder.pathOf("absent/document.xml"), "unknown exception caught");
}

TEST_F(DocumentFileTest, FolderFailsTheQuery) {
    expectFailure(folder.path(), "unknown exception caught");
}

TEST_F(DocumentFileTest, FullDeviceFailsTheQuery) {
    expectFailure("/dev/full", "Error during file open");
}

TEST_F(DocumentFileTest, FailedDocumentLeavesTheFileAlone) {
    const std::string path = folder.fileHolding("as it was");
    use({{"/A/it's", record(answering("v"))}});
    EXPECT_FALSE(CDeviceInfoManager::GetDeviceInfo({{"A", {"*"}}}, data, path,
                                                   CDeviceInfoManager::DATA_FORMAT_XML));
    EXPECT_EQ(contentOf(path), "as it was");
}

} // namespace
