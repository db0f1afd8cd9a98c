#include "workers/FileReader.h"

#include "ErrorText.h"

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

namespace qxmix {
namespace {

/// As a file system that does not answer, a reader that dies, a refusal.
std::string ReadAsAsked(const std::string& name) {
    if (name == "hangs") {
        pause();
    } else if (name == "dies") {
        raise(SIGKILL);
    } else if (name == "wrong") {
        throw InputError("wrong: refused");
    }
    return name + std::string(1, '\0') + std::string(100000, 'x');
}

TEST(FileReader, BringsWhatWasRead) {
    FileReader reader(&ReadAsAsked, Milliseconds(2000));
    EXPECT_EQ(reader.Read("a"), ReadAsAsked("a"));
    EXPECT_EQ(reader.Read("b"), ReadAsAsked("b"));
}

TEST(FileReader, ReadsOnBehindARefusalAHangAndADeath) {
    FileReader hasty(&ReadAsAsked, Milliseconds(10));
    EXPECT_EQ(ErrorText([&hasty] { hasty.Read("hangs"); }),
              "hangs: cannot be read: nothing came within 2 s");
    FileReader patient(&ReadAsAsked, Milliseconds(2000));
    EXPECT_EQ(ErrorText([&patient] { patient.Read("wrong"); }), "wrong: refused");
    EXPECT_EQ(ErrorText([&patient] { patient.Read("dies"); }),
              "dies: cannot be read: its reader ended");
    EXPECT_EQ(patient.Read("a"), ReadAsAsked("a"));
}

}  // namespace
}  // namespace qxmix
