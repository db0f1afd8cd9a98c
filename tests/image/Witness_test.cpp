#include "ImageTest.h"
#include "Requests.h"
#include "RunWords.h"

#include "witness/PlayRequests.h"

#include "Describe.h"
#include "RandomRequests.h"
#include "Settings.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace emulation {
namespace {

constexpr std::uint64_t kStepBudget = 20000;

/// The same requests to a library in another witness and to the Linux library.
class Witness : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "witnessXXXXXX";
        ASSERT_NE(nullptr, mkdtemp(pattern.data()));
        folder_ = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    /// Draws requests that end soon, and notes what the Linux library answers.
    void DrawQuestions() {
        const std::uint64_t cases = property::Setting("QXMIX_IMAGE_CASES", 6000) / 5;
        std::ofstream out(In("questions"), std::ios::binary);
        property::ModuleUnderTest linux;
        for (const property::Kind kind : property::kAllKinds) {
            for (std::uint64_t number = 0; number < cases; ++number) {
                property::Draw draw(kSeed, number);
                const property::RandomCase random = property::MakeRandomCase(kind, draw);
                if (EndsSoon(random)) {
                    WriteQuestion(random, out);
                    expected_.push_back(AnswerOf(linux, random));
                }
            }
        }
        ASSERT_GT(expected_.size(), 4 * cases);
    }

    /// Runs a script of the folder `witness`; true when it has answered.
    void Ask(const std::string& script, Target target) {
        const int status = RunWords({std::string(WITNESS_FOLDER) + "/" + script, PathOf(target),
                                     In("questions"), In("answers")},
                                    In("said"));
        const Bytes said = FileOf(In("said"));
        const std::string text(said.begin(), said.end());
        constexpr int kSkipped = 77;
        if (WIFEXITED(status) && WEXITSTATUS(status) == kSkipped) {
            GTEST_SKIP() << text;
        }
        ASSERT_EQ(0, status) << text;
        CompareAnswers();
    }

    std::string In(const std::string& name) const { return folder_ + "/" + name; }

private:
    static bool EndsSoon(const property::RandomCase& random) {
        reference::RequestBytes request = random.request;
        std::array<std::uint8_t, reference::kResultBytes> result{};
        return reference::MixCalculate(random.object, request.Bytes(), result.data(), kStepBudget)
            .finished;
    }

    static void WriteQuestion(const property::RandomCase& random, std::ostream& out) {
        witness::Question question;
        question.usFirstMixNumber = random.object.first;
        question.usLastMixNumber = random.object.last;
        question.ulCstMinimum4Mix6 = random.object.cstMinimum;
        std::memcpy(&question.request, random.request.Bytes(), sizeof(question.request));
        out.write(reinterpret_cast<const char*>(&question), sizeof(question));
    }

    static property::Answer AnswerOf(property::ModuleUnderTest& linux,
                                     const property::RandomCase& random) {
        property::Answer answer;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
        linux.Calculate(random.object, 0, answer);
        return answer;
    }

    void CompareAnswers() const {
        const Bytes replies = FileOf(In("answers"));
        ASSERT_EQ(expected_.size() * sizeof(witness::Reply), replies.size());
        for (std::size_t index = 0; index < expected_.size(); ++index) {
            witness::Reply reply;
            std::memcpy(&reply, &replies[index * sizeof(reply)], sizeof(reply));
            property::Answer answer;
            answer.returned = static_cast<std::int32_t>(std::uint32_t{reply.lReturned});
            answer.lastCode = reinterpret_cast<const char*>(reply.acErrorCode);
            std::memcpy(answer.request.data(), &reply.request, sizeof(reply.request));
            std::memcpy(answer.result.data(), &reply.result, sizeof(reply.result));
            ASSERT_EQ("", Difference(expected_[index], answer))
                << property::Describe(answer.request.data());
        }
        std::cout << expected_.size() << " requests compared" << std::endl;
    }

    static constexpr std::uint64_t kSeed = 20;
    std::string folder_;
    std::vector<property::Answer> expected_;
};

/// Asks a witness about a library that has been built.
class LibraryWitness : public Witness {
protected:
    void AskAbout(Target target, const std::string& script) {
        if (FileOf(PathOf(target)).empty()) {
            GTEST_SKIP() << "there is no " << PathOf(target) << ": run scripts/lib/build-dlls";
        }
        DrawQuestions();
        Ask(script, target);
    }
};

TEST_F(LibraryWitness, OtherEmulatorOfTheDeviceGivesTheSameAnswers) {
    AskAbout(Target::Device, "run-on-qemu");
}

TEST_F(LibraryWitness, WineGivesTheSameAnswers) {
    AskAbout(Target::Desktop, "run-in-wine");
}

}  // namespace
}  // namespace emulation
