/// The library as a terminal lives with it: in one process, day after day, every answer compared.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <malloc.h>

#include "AskedRequest.h"
#include "Describe.h"
#include "ErrorCode.h"
#include "HostControl.h"
#include "Settings.h"
#include "TerminalLife.h"

namespace property {
namespace {

constexpr char kSettingsKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM";
constexpr char kTraceKey[] = "HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser";

/// The service provider of one terminal.
class Provider final : private MixAlgorithmHost {
public:
    ~Provider() { Stop(); }

    void Start() { outer_ = CreateMixAlgorithm(this); }

    void Stop() {
        if (outer_ != nullptr) {
            DeleteMixAlgorithm();
            created_.back()->Destroy(1);  // the inner object, which the module leaves to its host
            created_.clear();
            outer_ = nullptr;
        }
    }

    /// Of mixes 6 to 9, as the objects have read it.
    std::uint32_t Minimum() const {
        return static_cast<const CMixAlgorithm*>(created_.back())->ulCstMinimum4Mix6;
    }

    void Calculate(Answer& answer) {
        answer.returned = outer_->MixCalculate(reinterpret_cast<MixRequest*>(answer.request.data()),
                                               reinterpret_cast<MixResult*>(answer.result.data()));
        answer.lastCode = TakeErrorCode();
    }

    /// The list of mixes, given back at once; false when there is none.
    bool ListMixes() {
        WFSCDMMIXTYPE** list = nullptr;
        const std::int32_t result = outer_->GetMixTypes(&list);
        if (list != nullptr) {
            EXPECT_EQ(kQxmixXfsSuccess, WFMFreeBuffer(list));
        }
        return result == 0;
    }

private:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        created_.push_back(object);
        return 0;
    }

    std::vector<IMixAlgorithm*> created_;
    IMixAlgorithm* outer_ = nullptr;
};

class LongLife : public testing::Test {
protected:
    LongLife() : life_(Setting("QXMIX_SEED", 1)) {
        PowerUp();
        provider_.Start();
    }
    ~LongLife() override {
        provider_.Stop();
        QxmixReset();
    }

    /// The terminal's system begins anew; what the module had open there is closed.
    static void PowerUp() {
        QxmixReset();
        QxmixRegistryCreateKey(kTraceKey);
    }

    void FailCall(unsigned number) {
        QxmixFailCall(kQxmixAnyFunction, number, kQxmixUsualFailure);
        mayStayOpen_ += number != 0 ? 1 : 0;
    }

    void BeginDay() {
        const TerminalLife::Morning morning = life_.BeginDay();
        if (!morning.restarts) {
            return;
        }
        provider_.Stop();
        QxmixRegistrySetText(kSettingsKey, "CSTMinimum4Mix6",
                             std::to_string(morning.minimum).c_str());
        FailCall(morning.failingCall);
        provider_.Start();
        QxmixResetCalls();
        ++mayStayOpen_;
        EXPECT_TRUE(provider_.Minimum() == morning.minimum ||
                    (provider_.Minimum() == 100 && morning.failingCall != 0));
    }

    void ServeCustomer() {
        const RandomCase customer = life_.NextCustomer();
        reference::Object object;
        object.cstMinimum = provider_.Minimum();
        Answer expected;
        std::copy_n(customer.request.Bytes(), reference::kRequestBytes, expected.request.begin());
        Answer actual = expected;
        const reference::Outcome outcome =
            reference::MixCalculate(object, expected.request.data(), expected.result.data(),
                                    Setting("QXMIX_STEPS", 300000));
        const unsigned failingCall = life_.FailingCall();
        if (outcome.neverEnds || !outcome.finished) {
            ++(outcome.neverEnds ? never_ : exceeded_);
            return;
        }
        expected.returned = outcome.returned;
        expected.lastCode = outcome.lastCode;
        FailCall(failingCall);
        provider_.Calculate(actual);
        QxmixResetCalls();
        if (failingCall != 0 && actual.lastCode.empty()) {
            expected.lastCode.clear();  // the code could not be left; nothing else may change
        }
        EXPECT_EQ("", Difference(expected, actual));
        ++compared_;
        const std::uint64_t before = life_.Held();
        life_.Dispense(actual.result.data());
        const AskedRequest asked(customer);
        // First fit may pay more; of a partial amount the remainder is not always what is missing.
        if (actual.returned == 0 && !asked.IsFirstFit() && !asked.MayPayLess()) {
            const std::uint32_t missing = reference::ReadU32(&actual.request[1056]);
            EXPECT_EQ(asked.Record().ulAmount - missing, before - life_.Held())
                << Describe(customer.request.Bytes());
        }
    }

    TerminalLife life_;
    Provider provider_;
    std::uint64_t compared_ = 0;
    std::uint64_t never_ = 0;
    std::uint64_t exceeded_ = 0;
    /// Keys: the one of the trace level, which each pair of objects leaves open on purpose, and
    /// those whose closing failed.
    unsigned mayStayOpen_ = 1;
};

TEST_F(LongLife, EndsWithWhatItBeganWith) {
    constexpr unsigned kMonth = 30;
    constexpr std::size_t kLeak = 4096;  // the allocator keeps some of what is freed
    const std::uint64_t days = Setting("QXMIX_LIFE_DAYS", 365);
    std::size_t inUse = 0;
    for (std::uint64_t day = 1; day <= days && !HasFailure(); ++day) {
        BeginDay();
        for (unsigned left = life_.CustomersToday(); left > 0; --left) {
            ServeCustomer();
        }
        EXPECT_TRUE(provider_.ListMixes());
        EXPECT_EQ(0U, QxmixMemoryLiveBlocks());
        EXPECT_LE(QxmixRegistryOpenKeys(), mayStayOpen_);
        if (day % kMonth == 0) {
            provider_.Stop();
            PowerUp();
            mayStayOpen_ = 1;
            const std::size_t now = mallinfo2().uordblks;
            inUse = day == kMonth ? now : inUse;
            EXPECT_LE(now, inUse + kLeak) << "day " << day;
            provider_.Start();
        }
    }
    std::cout << days << " days: " << compared_ << " answers compared, " << never_ << " never end, "
              << exceeded_ << " not put (too many steps for the reference)\n";
    EXPECT_GT(compared_, 5 * (never_ + exceeded_));
}

}  // namespace
}  // namespace property
