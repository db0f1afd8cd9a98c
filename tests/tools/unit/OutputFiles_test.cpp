#include "files/Output.h"

#include "ErrorText.h"
#include "SystemCalls.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace qxmix {
namespace {

namespace fs = std::filesystem;

class OutputFilesTest : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return folder_.Name(name); }

    std::string Content(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void Write(const std::string& name, const std::string& content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
    }

    std::size_t FileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()));
    }

    const TemporaryFolder folder_;
};

TEST_F(OutputFilesTest, AreOnDiskBeforeTheyTakeTheirPlace) {
    Write("a", "old");
    OutputFiles files;
    SystemCalls calls;
    files.Add(Path("a"), "new");
    EXPECT_EQ(Content("a"), "old");
    files.Commit();
    EXPECT_EQ(Content("a"), "new");
    EXPECT_EQ(calls.Text(), "fsync file, renameat a, fsync folder");
}

TEST_F(OutputFilesTest, StayOldWhenTheDiskFailsAtTheLastMoment) {
    Write("a", "old");
    SystemCalls calls;
    calls.FailSynchronising(EIO);
    const std::string said = ErrorText([this] {
        OutputFiles files;
        files.Add(Path("a"), "new");
        files.Commit();
    });
    EXPECT_EQ(said, Path("a") + ": cannot be written: Input/output error");
    EXPECT_EQ(Content("a"), "old");
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(OutputFilesTest, AreWrittenUnderNamesThatNobodyCanForesee) {
    OutputFiles files;
    files.Add(Path("a"), "first");
    files.Add(Path("b"), "second");
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) {
        names.push_back(entry.path().filename().string());
    }
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0].size(), names[1].size());
    EXPECT_NE(names[0].substr(0, 10), names[1].substr(0, 10));
}

TEST_F(OutputFilesTest, StayInTheFolderThatWasMeant) {
    fs::create_directory(Path("shared"));
    fs::create_directory(Path("private"));
    Write("private/a", "private");
    OutputFiles files;
    files.Add(Path("shared/a"), "new");
    fs::rename(Path("shared"), Path("moved"));
    fs::create_directory_symlink("private", Path("shared"));
    files.Commit();
    EXPECT_EQ(Content("private/a"), "private");
    EXPECT_EQ(Content("moved/a"), "new");
}

TEST_F(OutputFilesTest, LeaveNothingThatIsNotCommitted) {
    {
        OutputFiles files;
        files.Add(Path("a"), "new");
        EXPECT_EQ(FileCount(), 1U);
    }
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(OutputFilesTest, TakeANameAsLongAsTheSystemDoes) {
    const std::string name(255, 'n');
    OutputFiles files;
    files.Add(Path(name), "new");
    files.Commit();
    EXPECT_EQ(Content(name), "new");
}

}  // namespace
}  // namespace qxmix
