#include "workers/Worker.h"

#include "ErrorText.h"
#include "FakeModule.h"
#include "dispenser/InlineDispenser.h"
#include "requests/Request.h"
#include "workers/Asker.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr Milliseconds kEnough{20000};
constexpr Milliseconds kTooShort{150};

MixRequest Asking(FakeBehaviour behaviour) {
    return BuildRequest(ReadInlineDispenser("EUR:1x100"), static_cast<std::uint32_t>(behaviour), 1);
}

MixRequest Paying(std::uint32_t items) {
    return BuildRequest(ReadInlineDispenser("EUR:1x100"), items, 1);
}

Reply AskFake(FakeBehaviour behaviour, Milliseconds deadline = kEnough) {
    Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    return worker.Calculate(Asking(behaviour), deadline, nullptr);
}

TEST(Worker, BringsBackRequestResultAndCode) {
    Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    const Reply reply = worker.Calculate(Paying(7), kEnough, nullptr);
    ASSERT_EQ(reply.ending.kind, Ending::Kind::Answered);
    EXPECT_EQ(reply.calculation.returned, 0);
    EXPECT_EQ(reply.calculation.result.aulNotes[0], 7U);
    EXPECT_EQ(reply.calculation.request.ulAmount, 7U);
    EXPECT_EQ(reply.calculation.written, "");
}

TEST(Worker, TellsWhatTheObjectHolds) {
    const Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    EXPECT_EQ(worker.Opened().traceLevel, 5U);
    EXPECT_EQ(worker.Opened().minimum, 77U);
    EXPECT_EQ(worker.Opened().mixTypeCount, 10U);
}

TEST(Worker, AnswersManyRequestsOneAfterTheOther) {
    Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    for (std::uint32_t items = 0; items < 100; ++items) {
        const Reply reply = worker.Calculate(Paying(items), kEnough, nullptr);
        ASSERT_EQ(reply.calculation.result.aulNotes[0], items);
    }
}

TEST(Worker, GivesUpAtTheDeadline) {
    const auto start = Clock::now();
    const Reply reply = AskFake(FakeBehaviour::Hang, kTooShort);
    EXPECT_EQ(reply.ending.kind, Ending::Kind::NoAnswer);
    EXPECT_GE(Clock::now() - start, kTooShort);
    EXPECT_LT(Clock::now() - start, kEnough);
}

TEST(Worker, GivesUpAtTheDeadlineThoughLinesKeepComing) {
    std::size_t lines = 0;
    Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    const Reply reply = worker.Calculate(Asking(FakeBehaviour::TraceForEver), kTooShort,
                                         [&lines](const std::string&) { ++lines; });
    EXPECT_EQ(reply.ending.kind, Ending::Kind::NoAnswer);
    EXPECT_GT(lines, 0U);
}

TEST(Worker, TellsACrashFromAnAnswer) {
    const Reply reply = AskFake(FakeBehaviour::Crash);
    EXPECT_EQ(reply.ending.kind, Ending::Kind::Crashed);
    // Under a sanitizer the signal ends in its report and an exit status.
    EXPECT_TRUE(reply.ending.crash == "signal 11 (Segmentation fault)" ||
                reply.ending.crash.find("exit status") == 0)
        << reply.ending.crash;
}

TEST(Worker, TellsALibraryThatEndsItsProcess) {
    const Reply reply = AskFake(FakeBehaviour::Leave);
    EXPECT_EQ(reply.ending.kind, Ending::Kind::Crashed);
    EXPECT_EQ(reply.ending.crash, "exit status 7");
}

TEST(Worker, HandsOnCodesThatNobodyKnows) {
    EXPECT_EQ(AskFake(FakeBehaviour::OddCode).calculation.returned, -14);
}

TEST(Worker, TellsTheCodeThatTheCallLeft) {
    EXPECT_EQ(AskFake(FakeBehaviour::Refuse).calculation.written, "971A2");
}

TEST(Worker, TellsACodeAgainThatIsTheSameAsBefore) {
    Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    EXPECT_EQ(worker.Calculate(Asking(FakeBehaviour::Refuse), kEnough, nullptr).calculation.written,
              "971A2");
    EXPECT_EQ(worker.Calculate(Paying(1), kEnough, nullptr).calculation.written, "");
    EXPECT_EQ(worker.Calculate(Asking(FakeBehaviour::Refuse), kEnough, nullptr).calculation.written,
              "971A2");
}

TEST(Worker, KeepsTheLibraryFromTheToolsOwnStreams) {
    testing::internal::CaptureStdout();
    const Reply reply = AskFake(FakeBehaviour::Print);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(reply.calculation.result.aulNotes[0], 1U);
}

TEST(Worker, BringsTheCatalogueAsFarAsItGot) {
    Worker worker({QXMIX_FAKE_MODULE, ""}, nullptr);
    Catalogue catalogue;
    EXPECT_EQ(worker.ListTypes(catalogue, kEnough).kind, Ending::Kind::Answered);
    EXPECT_EQ(catalogue.returned, -1);
    EXPECT_EQ(catalogue.recordCount, 3U);
    EXPECT_TRUE(catalogue.entries.empty());
}

std::string OpeningError(const std::string& library) {
    return ErrorText([&library] { Worker({library, ""}, nullptr); });
}

TEST(Worker, SaysWhyALibraryCannotBeUsed) {
    EXPECT_EQ(OpeningError(QXMIX_FAKE_WITHOUT_OBJECT),
              std::string(QXMIX_FAKE_WITHOUT_OBJECT) + ": CreateMixAlgorithm gave no object");
    EXPECT_EQ(OpeningError(QXMIX_FAKE_WITHOUT_DELETE),
              std::string(QXMIX_FAKE_WITHOUT_DELETE) + ": exports no DeleteMixAlgorithm");
    EXPECT_EQ(OpeningError(QXMIX_FAKE_CRASHING)
                  .find(std::string(QXMIX_FAKE_CRASHING) + ": crashed while it was opened: "),
              0U);
    EXPECT_NE(OpeningError("/no/such.so").find("/no/such.so: cannot open"), std::string::npos);
}

TEST(Asker, GoesOnWithANewWorkerAfterACrash) {
    Asker asker(QXMIX_FAKE_MODULE, "");
    EXPECT_EQ(asker.Ask(Asking(FakeBehaviour::Crash), kEnough).ending.kind, Ending::Kind::Crashed);
    EXPECT_EQ(asker.Ask(Paying(3), kEnough).calculation.result.aulNotes[0], 3U);
}

TEST(Asker, GoesOnWithANewWorkerAfterAMissedDeadline) {
    Asker asker(QXMIX_FAKE_MODULE, "");
    EXPECT_EQ(asker.Ask(Asking(FakeBehaviour::Hang), kTooShort).ending.kind,
              Ending::Kind::NoAnswer);
    EXPECT_EQ(asker.Ask(Paying(3), kEnough).calculation.result.aulNotes[0], 3U);
}

TEST(Asker, KeepsTheRegistryAcrossWorkers) {
    Asker asker(QXMIX_FAKE_MODULE, "");
    asker.Ask(Asking(FakeBehaviour::Refuse), kEnough);
    asker.KeepRegistry();
    asker.Ask(Asking(FakeBehaviour::Crash), kEnough);
    asker.KeepRegistry();
    asker.Ask(Paying(3), kEnough);
    asker.KeepRegistry();
    EXPECT_NE(asker.Registry().find(std::string("3\0009\0,\0003\0007\0", 10)), std::string::npos);
}

TEST(Asker, NamesNoVersionWhenTheModuleDoesNot) {
    Asker asker(QXMIX_FAKE_MODULE, "");
    asker.Open();
    EXPECT_EQ(asker.ModuleVersion(), "");
}

}  // namespace
}  // namespace qxmix
