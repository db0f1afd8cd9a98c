#include "ImageTest.h"
#include "Requests.h"

#include "RequestDigest.h"
#include "VectorFile.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace emulation {
namespace {

/// The vector files, in the order of their names, and the digest that all builds give.
std::vector<std::string> VectorFiles() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(VECTOR_FOLDER)) {
        const std::string name = entry.path().filename();
        if (entry.path().extension() == ".txt" && name != "CMakeLists.txt" &&
            name != "digest.txt") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string ExpectedDigest() {
    std::string digest;
    std::ifstream(std::string(VECTOR_FOLDER) + "/digest.txt") >> digest;
    return digest;
}

class Vectors : public ImageTest {
protected:
    void Run(RequestPlayer& player, const VectorCase& asked) {
        property::Answer answer;
        std::memcpy(answer.request.data(), &asked.request, sizeof(asked.request));
        const reference::Object object{asked.firstMix, asked.lastMix, asked.minimum};
        const CallReport report = player.Calculate(object, asked.line % 4, answer);
        EXPECT_EQ("", report.fault) << asked.name;
        EXPECT_EQ(asked.returned, answer.returned) << asked.name;
        EXPECT_EQ(asked.code, answer.lastCode) << asked.name;
        MixRequest request;
        MixResult result;
        std::memcpy(&request, answer.request.data(), sizeof(request));
        std::memcpy(&result, answer.result.data(), sizeof(result));
        EXPECT_EQ(asked.amount, request.ulAmount) << asked.name;
        EXPECT_EQ(asked.remainder, request.ulRemainder) << asked.name;
        EXPECT_TRUE(std::equal(result.aulNotes, result.aulNotes + kMaxCashUnits, asked.notes))
            << asked.name;
        property::AddTo(digest_, answer);
    }

    std::string DigestAsText() const { return property::TextOf(digest_); }

private:
    Digest digest_;
};

TEST_P(Vectors, GetTheAnswersAndTheDigestOfEveryBuild) {
    RequestPlayer player(Module());
    unsigned cases = 0;
    for (const std::string& path : VectorFiles()) {
        VectorFile file(path.c_str());
        ASSERT_TRUE(file.IsOpen()) << path;
        for (VectorCase next; file.ReadCase(next);) {
            Run(player, next);
            ++cases;
        }
        EXPECT_EQ(0U, file.WrongLine()) << path;
    }
    EXPECT_GT(cases, 100U);
    EXPECT_EQ(ExpectedDigest(), DigestAsText());
}

FOR_EVERY_IMAGE(Vectors);

}  // namespace
}  // namespace emulation
