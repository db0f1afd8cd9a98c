#include "PlatformTest.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Lets every write to a file fail while it lives.
class NoRoomForFiles {
public:
    NoRoomForFiles() {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit none = before_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
        handlerBefore_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    NoRoomForFiles(const NoRoomForFiles&) = delete;
    NoRoomForFiles& operator=(const NoRoomForFiles&) = delete;

    ~NoRoomForFiles() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handlerBefore_);
    }

private:
    rlimit before_ = {};
    void (*handlerBefore_)(int) = nullptr;
};

/// Each test has a folder of its own.
class RegistryFile : public PlatformTest {
protected:
    RegistryFile() {
        std::string name = testing::TempDir() + "registry-XXXXXX";
        folder_ = mkdtemp(name.data());
    }

    ~RegistryFile() override { std::filesystem::remove_all(folder_); }

    std::string PathOf(const char* name) const { return folder_ / name; }

    std::string Write(const char* name, const std::string& bytes) const {
        std::ofstream(PathOf(name), std::ios::binary) << bytes;
        return PathOf(name);
    }

    static std::string Read(const std::string& path) {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }

    std::size_t FilesThere() const {
        const std::filesystem::directory_iterator files(folder_);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

private:
    std::filesystem::path folder_;
};

TEST_F(RegistryFile, IsLoaded) {
    const std::string path = Write("a.reg", "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"N\"=dword:5\n");
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistryLoadFile(path.c_str(), &error), 0) << error.message;
    EXPECT_EQ(StoredBytes("HKEY_LOCAL_MACHINE\\K", "N")[0], 5);
}

TEST_F(RegistryFile, IsLoadedWhenItIsLong) {
    std::string text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n";
    for (int k = 0; k < 5000; ++k) {
        text += "\"value " + std::to_string(k) + "\"=dword:1\n";
    }
    EXPECT_EQ(QxmixRegistryLoadFile(Write("a.reg", text).c_str(), nullptr), 0);
    EXPECT_EQ(StoredType("HKEY_LOCAL_MACHINE\\K", "value 4999"), 4U);
}

TEST_F(RegistryFile, IsLoadedToItsLastByte) {
    for (std::size_t size = 8190; size < 8195; ++size) {
        std::string text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n;";
        const std::string last = "\n\"N\"=dword:12";
        text.append(size - text.size() - last.size(), '-').append(last);
        ASSERT_EQ(QxmixRegistryLoadFile(Write("a.reg", text).c_str(), nullptr), 0);
        EXPECT_EQ(StoredBytes("HKEY_LOCAL_MACHINE\\K", "N")[0], 0x12) << size;
    }
}

TEST_F(RegistryFile, ReportsItsWrongLine) {
    QxmixTextError error;
    const std::string path = Write("a.reg", "REGEDIT4\n\n\n\n\"N\"=dword:5\n");
    EXPECT_EQ(QxmixRegistryLoadFile(path.c_str(), &error), kQxmixErrorInvalidData);
    EXPECT_EQ(error.line, 5U);
    EXPECT_STREQ(error.message, "value without a key line above it");
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 1);
}

TEST_F(RegistryFile, ReportsThatItIsMissing) {
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistryLoadFile(PathOf("none.reg").c_str(), &error), kQxmixErrorFileNotFound);
    EXPECT_EQ(error.line, 0U);
    EXPECT_STREQ(error.message, "cannot be read: No such file or directory");
    EXPECT_EQ(QxmixRegistryLoadFile(PathOf("none.reg").c_str(), nullptr), kQxmixErrorFileNotFound);
}

TEST_F(RegistryFile, ReportsThatItCannotBeRead) {
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistryLoadFile(PathOf("").c_str(), &error), kQxmixErrorReadFault);
    EXPECT_STREQ(error.message, "cannot be read: Is a directory");
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 1);
}

TEST_F(RegistryFile, IsWrittenAndReadBackTheSame) {
    ASSERT_EQ(QxmixRegistrySetValue(kErrorCodeKey, "CDM", 1, "971A5", 5), 0);
    const std::string path = PathOf("out.reg");
    QxmixTextError error;
    ASSERT_EQ(QxmixRegistrySaveFile(path.c_str(), &error), 0) << error.message;
    const std::string first = Read(path);
    EXPECT_EQ(first, SavedText());
    QxmixRegistryClear();
    ASSERT_EQ(QxmixRegistryLoadFile(path.c_str(), nullptr), 0);
    ASSERT_EQ(QxmixRegistrySaveFile(path.c_str(), nullptr), 0);
    EXPECT_EQ(Read(path), first);
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(RegistryFile, KeepsTheRightsOfTheFileThatItReplaces) {
    const std::string path = Write("out.reg", "old");
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(QxmixRegistrySaveFile(path.c_str(), nullptr), 0);
    struct stat now = {};
    ASSERT_EQ(stat(path.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 0777U, 0666U);
    EXPECT_EQ(Read(path), SavedText());
}

TEST_F(RegistryFile, ReplacesWhatALinkPointsToAndKeepsTheLink) {
    const std::string target = Write("target.reg", "old");
    ASSERT_EQ(symlink(target.c_str(), PathOf("link.reg").c_str()), 0);
    ASSERT_EQ(QxmixRegistrySaveFile(PathOf("link.reg").c_str(), nullptr), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(PathOf("link.reg")));
    EXPECT_EQ(Read(target), SavedText());
}

TEST_F(RegistryFile, IsNotWrittenIntoAFolderThatIsMissing) {
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistrySaveFile(PathOf("none/out.reg").c_str(), &error),
              kQxmixErrorFileNotFound);
    EXPECT_STREQ(error.message, "cannot be written: No such file or directory");
}

TEST_F(RegistryFile, IsNotWrittenOverAFolder) {
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistrySaveFile(PathOf("").c_str(), &error), kQxmixErrorWriteFault);
    EXPECT_STREQ(error.message, "cannot be written: Is a directory");
    EXPECT_EQ(error.line, 0U);
}

TEST_F(RegistryFile, StaysWholeWhenTheContentCannotBeWritten) {
    const std::string path = Write("out.reg", "old");
    HKEY key = nullptr;
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"a\nb", &key), ERROR_SUCCESS);
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistrySaveFile(path.c_str(), &error), kQxmixErrorInvalidData);
    EXPECT_EQ(error.line, 0U);
    EXPECT_STREQ(error.message, "the name of a key has a line break, which the file cannot hold");
    EXPECT_EQ(Read(path), "old");
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(RegistryFile, StaysWholeWhenTheDiskIsFull) {
    const std::string path = Write("out.reg", "old");
    QxmixTextError error;
    const std::int32_t result = [&] {
        const NoRoomForFiles noRoom;
        return QxmixRegistrySaveFile(path.c_str(), &error);
    }();
    EXPECT_EQ(result, kQxmixErrorWriteFault);
    EXPECT_STREQ(error.message, "cannot be written: File too large");
    EXPECT_EQ(Read(path), "old");
    EXPECT_EQ(FilesThere(), 1U);
}

TEST_F(RegistryFile, IsWrittenDirectlyWhenItIsADevice) {
    EXPECT_EQ(QxmixRegistrySaveFile("/dev/null", nullptr), 0);
    QxmixTextError error;
    EXPECT_EQ(QxmixRegistrySaveFile("/dev/full", &error), kQxmixErrorWriteFault);
    EXPECT_STREQ(error.message, "cannot be written: No space left on device");
}

}  // namespace
