/// Files of the registry on a system that fails or interrupts: the calls below stand in front of
/// the system's own.

#include "PlatformTest.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

/// Which call of this thread fails, and with what.
enum class Failing { Nothing, Closing, Rights, Reading, Renaming };
thread_local Failing failing = Failing::Nothing;
thread_local int failureNumber = 0;

bool Fails(Failing call) {
    if (failing != call) {
        return false;
    }
    errno = failureNumber;
    return true;
}

/// Calls of any thread that were interrupted.
std::atomic<unsigned> interruptions{0};

ssize_t CountInterruption(ssize_t result) {
    interruptions += result < 0 && errno == EINTR ? 1 : 0;
    return result;
}

template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int close(int descriptor) {
    const int result = Real<int(int)>("close")(descriptor);
    return Fails(Failing::Closing) ? -1 : result;
}

int fchmod(int descriptor, mode_t mode) noexcept {
    return Fails(Failing::Rights) ? -1 : Real<int(int, mode_t)>("fchmod")(descriptor, mode);
}

int rename(const char* from, const char* to) noexcept {
    return Fails(Failing::Renaming) ? -1 : Real<int(const char*, const char*)>("rename")(from, to);
}

ssize_t read(int descriptor, void* bytes, std::size_t size) {
    if (Fails(Failing::Reading)) {
        return -1;
    }
    return CountInterruption(
        Real<ssize_t(int, void*, std::size_t)>("read")(descriptor, bytes, size));
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    return CountInterruption(
        Real<ssize_t(int, const void*, std::size_t)>("write")(descriptor, bytes, size));
}
}

namespace {

class FileFailures : public PlatformTest {
protected:
    FileFailures() {
        std::string name = testing::TempDir() + "failures-XXXXXX";
        folder_ = mkdtemp(name.data());
        path_ = folder_ / "a.reg";
    }
    ~FileFailures() override { std::filesystem::remove_all(folder_); }

    std::int32_t SaveWhile(Failing call, int number, const std::string& path) {
        failing = call;
        failureNumber = number;
        const std::int32_t result = QxmixRegistrySaveFile(path.c_str(), &error_);
        failing = Failing::Nothing;
        return result;
    }

    std::filesystem::path folder_;
    std::filesystem::path path_;
    QxmixTextError error_ = {};
};

TEST_F(FileFailures, LeaveTheOldFileAndNothingBesideIt) {
    struct Case {
        Failing call;
        int number;
        const char* message;
    };
    const Case cases[] = {
        {Failing::Closing, ENOSPC, "cannot be written: No space left on device"},
        {Failing::Rights, EPERM, "cannot be written: Operation not permitted"},
        {Failing::Renaming, ETXTBSY, "cannot be written: Text file busy"},
    };
    std::ofstream(path_) << "old";
    for (const Case& one : cases) {
        EXPECT_EQ(SaveWhile(one.call, one.number, path_), kQxmixErrorWriteFault);
        EXPECT_STREQ(error_.message, one.message);
        std::ostringstream left;
        left << std::ifstream(path_).rdbuf();
        EXPECT_EQ(left.str(), "old");
        const std::filesystem::directory_iterator files(folder_);
        EXPECT_EQ(std::distance(begin(files), end(files)), 1);
    }
}

TEST_F(FileFailures, AreToldOfADeviceThatFailsOnlyAtTheEnd) {
    EXPECT_EQ(SaveWhile(Failing::Closing, EIO, "/dev/null"), kQxmixErrorWriteFault);
    EXPECT_STREQ(error_.message, "cannot be written: Input/output error");
}

TEST_F(FileFailures, OfReadingLeaveTheContent) {
    std::ofstream(path_) << "REGEDIT4\n";
    failing = Failing::Reading;
    failureNumber = EIO;
    const std::int32_t result = QxmixRegistryLoadFile(path_.c_str(), &error_);
    failing = Failing::Nothing;
    EXPECT_EQ(result, kQxmixErrorReadFault);
    EXPECT_STREQ(error_.message, "cannot be read: Input/output error");
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 1);
}

TEST_F(FileFailures, OfAnotherProgramsNewFileDoNotStopASave) {
    const std::string process = std::to_string(getpid());
    std::vector<std::string> taken;
    for (int number = 1; number < 300; ++number) {
        taken.push_back(path_.string() + ".new-" + process + "-" + std::to_string(number));
        std::ofstream(taken.back()) << "another's";
    }
    EXPECT_EQ(SaveWhile(Failing::Nothing, 0, path_), 0);
    EXPECT_GT(std::filesystem::file_size(path_), 9U);
    for (const std::string& file : taken) {
        EXPECT_EQ(std::filesystem::file_size(file), 9U) << file;
    }
}

/// A pipe with a name, and a handler that interrupts the system's calls.
class Interruptions : public FileFailures {
protected:
    Interruptions() {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGUSR1, &action, &before_);
        mkfifo(path_.c_str(), 0600);
    }
    ~Interruptions() override { sigaction(SIGUSR1, &before_, nullptr); }

    /// Goes on until the thread has been interrupted in its reading or writing.
    static void Interrupt(std::thread& thread) {
        interruptions = 0;
        for (int turn = 0; turn < 10000 && interruptions < 3; ++turn) {
            pthread_kill(thread.native_handle(), SIGUSR1);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_GE(interruptions, 3U);
    }

private:
    struct sigaction before_ = {};
};

TEST_F(Interruptions, DoNotEndReading) {
    const int pipe = open(path_.c_str(), O_RDWR | O_CLOEXEC);
    std::int32_t result = -1;
    std::thread reader([&] { result = QxmixRegistryLoadFile(path_.c_str(), &error_); });
    Interrupt(reader);
    const std::string_view text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n";
    EXPECT_EQ(write(pipe, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    Interrupt(reader);
    close(pipe);
    reader.join();
    EXPECT_EQ(result, 0) << error_.message;
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\K"), 1);
}

TEST_F(Interruptions, DoNotEndWriting) {
    // More than a pipe takes before somebody reads it.
    const Bytes many(100000, 0x5A);
    ASSERT_EQ(QxmixRegistrySetValue(kErrorCodeKey, "Many", 3, many.data(), 100000), 0);
    const std::string expected = SavedText();
    const int pipe = open(path_.c_str(), O_RDWR | O_CLOEXEC);
    std::int32_t result = -1;
    std::thread writer([&] { result = QxmixRegistrySaveFile(path_.c_str(), &error_); });
    Interrupt(writer);
    std::string got(expected.size(), ' ');
    for (std::size_t size = 0; size < got.size();) {
        const ssize_t more = read(pipe, got.data() + size, got.size() - size);
        ASSERT_GT(more, 0);
        size += static_cast<std::size_t>(more);
    }
    writer.join();
    close(pipe);
    EXPECT_EQ(result, 0) << error_.message;
    EXPECT_TRUE(got == expected);
}

}  // namespace
