#include "Unwinder.h"

#include "ElfFile.h"
#include "ImageTest.h"
#include "RandomRequests.h"
#include "Requests.h"

#include <algorithm>
#include <map>
#include <set>

namespace emulation {
namespace {

/// What a function has to give back: where its caller goes on, and with which registers.
struct Caller {
    std::uint32_t returnAddress = 0;
    std::uint32_t stackPointer = 0;
    std::array<std::uint32_t, 8> kept{};  ///< r4 to r11

    bool operator==(const Caller& other) const {
        return returnAddress == other.returnAddress && stackPointer == other.stackPointer &&
               kept == other.kept;
    }
};

/// The caller that the registers of a function name at its first instruction, or a caller's own.
Caller CallerOf(Context context, std::uint32_t returnAddress) {
    Caller caller{returnAddress & ~1U, context.StackPointer(), {}};
    std::copy_n(context.registers.begin() + 4, caller.kept.size(), caller.kept.begin());
    return caller;
}

/// Libraries that a host's exception handler has to find its way through.
class Unwinding : public ImageTest {
protected:
    void SetUp() override {
        ImageTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        const std::string path = PathOf(TheTarget());
        program_ = image::ReadElf(FileOf(path.substr(0, path.size() - 3) + "elf"));
        for (const image::ElfFunction& function : program_.functions) {
            functions_.insert(function.address - program_.Symbol("IMAGE_BASE"));
        }
        unwinder_ = std::make_unique<Unwinder>(
            Library(), Base(), [this](std::uint32_t at) { return Cpu().WordAt(at); });
    }

    Machine& Cpu() { return Module().TheMachine(); }
    std::uint32_t Base() const { return std::get<1>(GetParam()); }
    const Unwinder& TheUnwinder() const { return *unwinder_; }
    const image::ElfFile& Program() const { return program_; }
    bool IsFunction(std::uint32_t address) const { return functions_.count(address - Base()) != 0; }

    Caller Unwound(Context& context) const {
        unwinder_->GoUp(context);
        context.ProgramCounter() &= ~1U;
        return CallerOf(context, context.ProgramCounter());
    }

private:
    image::ElfFile program_;
    std::set<std::uint32_t> functions_;
    std::unique_ptr<Unwinder> unwinder_;
};

TEST_P(Unwinding, TableIsSortedAndOfWholeInstructionsWithoutHandlers) {
    std::uint32_t end = 0;
    for (const PeFunction& function : Library().functions) {
        EXPECT_GE(function.rva, end);
        EXPECT_GE(function.prologLength, 1U);
        EXPECT_LT(function.prologLength, function.length);
        EXPECT_TRUE(function.hasWholeWords);
        EXPECT_FALSE(function.hasHandler);
        end = function.rva + 4 * function.length;
        EXPECT_LE(end, Library().sections.front().rva + Library().sections.front().size);
    }
    EXPECT_GT(Library().functions.size(), 40U);
}

/// The calls under way, written down as they are made, beside what the unwinder makes of the stack.
class UnwindingOfCalls : public Unwinding {
protected:
    void SetUp() override {
        Unwinding::SetUp();
        if (!IsSkipped()) {
            Watch();
        }
    }

    void Watch() {
        Cpu().beforeInstruction = [this](std::uint32_t address) {
            Context now = Cpu().Registers();
            now.ProgramCounter() = address;
            FollowCalls(now);
            if (++visits_[address] <= kVisitsLookedAt) {
                ExpectTheWayBack(now);
            }
            last_ = address;
        };
    }

    std::size_t InstructionsSeen() const { return visits_.size(); }

private:
    static constexpr unsigned kVisitsLookedAt = 3;

    void FollowCalls(Context now) {
        const std::uint32_t address = now.ProgramCounter();
        const std::uint32_t back = now.ReturnAddress();
        const bool fromOutside = IsFunction(address) && back - Base() >= Library().size;
        if (fromOutside && (callers_.empty() || now.StackPointer() >= callers_[0].stackPointer)) {
            callers_ = {CallerOf(now, back)};
        } else if (IsFunction(address) && back == last_ + 4 && address != last_ + 4) {
            callers_.push_back(CallerOf(now, back));
        }
        while (callers_.size() > 1 && address == callers_.back().returnAddress &&
               now.StackPointer() == callers_.back().stackPointer) {
            callers_.pop_back();
        }
    }

    void ExpectTheWayBack(Context context) {
        const std::uint32_t start = context.ProgramCounter();
        for (auto caller = callers_.rbegin(); caller != callers_.rend(); ++caller) {
            const PeFunction* const inside = TheUnwinder().EntryAt(context.ProgramCounter());
            Caller found = Unwound(context);
            // A function of the compiler's library calls a part of itself.
            if (inside != nullptr && TheUnwinder().EntryAt(found.returnAddress) == inside &&
                !(found == *caller)) {
                found = Unwound(context);
            }
            ASSERT_TRUE(found == *caller)
                << std::hex << "from " << start - Base() << " to " << found.returnAddress - Base()
                << " instead of " << caller->returnAddress - Base();
        }
    }

    std::map<std::uint32_t, unsigned> visits_;
    std::vector<Caller> callers_;  ///< the host first
    std::uint32_t last_ = 0;
};

TEST_P(UnwindingOfCalls, LeadsFromEveryInstructionBackToTheHost) {
    constexpr std::uint64_t kCases = 60;
    constexpr std::uint64_t kBudget = 30'000;
    EmulatedModule::Value(Module().Enter(1));
    RequestPlayer player(Module());
    for (const property::Kind kind : property::kAllKinds) {
        for (std::uint64_t number = 0; number < kCases; ++number) {
            property::Draw draw(1, number);
            const property::RandomCase random = property::MakeRandomCase(kind, draw);
            property::Answer answer;
            std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
            const CallReport report = player.Calculate(random.object, 0, answer, kBudget);
            ASSERT_EQ("", report.fault);
        }
    }
    const std::uint32_t list = Memory().Allocate(4, Rights::ReadWrite);
    for (const std::uint32_t object : Module().created) {
        EmulatedModule::Value(Module().Call(object, Slot::GetMixTypes, {list}));
    }
    EmulatedModule::Value(Module().Call(Module().created.at(1), Slot::Destroy, {1}));
    Module().Delete();
    EXPECT_GT(InstructionsSeen(), 5000U);
}

/// Each function by itself: its prolog run step by step, its body, and each way out of it.
class UnwindingOfFunctions : public Unwinding {
protected:
    void ExpectCaller(Context context, const char* where) {
        const std::uint32_t from = context.ProgramCounter();
        const PeFunction* const inside = TheUnwinder().EntryAt(from);
        Caller found = Unwound(context);
        if (TheUnwinder().EntryAt(found.returnAddress) == inside) {
            found = Unwound(context);  // it was in a part that the function calls
        }
        ASSERT_TRUE(found == caller_) << std::hex << "from " << where << ' ' << from - Base()
                                      << " to " << found.returnAddress - Base();
    }

    /// Leaves the registers as they are behind the prolog.
    Context RunProlog(const PeFunction& function) {
        Context context;
        for (std::uint32_t step = 0; step <= function.prologLength; ++step) {
            const std::uint32_t start = Base() + function.rva;
            Cpu().Call(start, {}, Convention::Cdecl, step);
            context = Cpu().Registers();
            context.ProgramCounter() = start + 4 * step;
            if (step == 0) {
                caller_ = CallerOf(context, context.ReturnAddress());
            }
            ExpectCaller(context, "prolog");
        }
        return context;
    }

    void ExpectWayBackFromBody(const PeFunction& function, Context context) {
        const std::uint32_t start = Base() + function.rva;
        bool isInEpilog = false;
        for (std::uint32_t at = function.prologLength; at < function.length; ++at) {
            context.ProgramCounter() = start + 4 * at;
            const bool wasInEpilog = isInEpilog;
            isInEpilog = IsCode(context.ProgramCounter()) && GivesBackFrame(context);
            if (!isInEpilog && !(wasInEpilog && Returns(context))) {
                ExpectWithAnyFlags(context);
            } else if (!wasInEpilog) {
                ExpectWayBackFromEpilog(context);
            }
        }
    }

    bool IsCode(std::uint32_t address) const {
        const std::uint32_t linked = address - Base() + Program().Symbol("IMAGE_BASE");
        const image::ElfMark* last = nullptr;
        for (const image::ElfMark& mark : Program().marks) {
            if (mark.address <= linked && (last == nullptr || mark.address >= last->address)) {
                last = &mark;
            }
        }
        return last != nullptr && last->isCode;
    }

private:
    static constexpr unsigned kLongestEpilog = 6;
    static constexpr std::uint32_t kFlags = 0xF0000000;
    static constexpr std::uint32_t kNextFlags = 0x10000000;

    std::uint32_t WordAt(Context& context) { return Cpu().WordAt(context.ProgramCounter()); }

    bool GivesBackFrame(Context& context) {
        const std::uint32_t plain = WordAt(context) & 0x0FFFFFFFU;
        return (plain & 0x0FFFF000U) == 0x028DD000U || (plain & 0x0FFF0000U) == 0x08BD0000U ||
               (plain & 0x0FFF0FFFU) == 0x049D0004U;
    }

    bool Returns(Context& context) {
        const std::uint32_t plain = WordAt(context) & 0x0FFFFFFFU;
        return plain == 0x01A0F00EU || plain == 0x012FFF1EU;
    }

    void ExpectWithAnyFlags(Context context) {
        if (Returns(context)) {
            // With its frame up a function only returns from a part that it has called itself.
            const PeFunction* const inside = TheUnwinder().EntryAt(context.ProgramCounter());
            context.ReturnAddress() = Base() + inside->rva + 4 * inside->prologLength;
        }
        const std::uint32_t others = context.flags & ~kFlags;
        for (std::uint32_t flags = 0; flags < 16; ++flags) {
            context.flags = others | (flags * kNextFlags);
            ExpectCaller(context, "body");
        }
    }

    /// Runs it with flags under which it does run, and looks before each instruction.
    void ExpectWayBackFromEpilog(Context context) {
        const std::uint32_t others = context.flags & ~kFlags;
        const std::uint32_t framed = context.StackPointer();
        for (std::uint32_t flags = 0; flags < 16; ++flags) {
            context.flags = others | (flags * kNextFlags);
            Context now = context;
            bool isUnderWay = true;
            for (unsigned step = 0; isUnderWay && step < kLongestEpilog; ++step) {
                ExpectCaller(now, "epilog");
                Cpu().Resume(now, 1);
                now = Cpu().Registers();
                isUnderWay =
                    now.StackPointer() != framed && now.ProgramCounter() != caller_.returnAddress;
            }
            if (now.StackPointer() != framed) {
                ++epilogsRun_;
                return;
            }
        }
        FAIL() << std::hex << "no flags take the way out at " << context.ProgramCounter() - Base();
    }

    Caller caller_;

protected:
    unsigned epilogsRun_ = 0;
};

TEST_P(UnwindingOfFunctions, LeadsFromEveryInstructionBackToTheCaller) {
    for (const PeFunction& function : Library().functions) {
        const Context context = RunProlog(function);
        ExpectWayBackFromBody(function, context);
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(epilogsRun_, Library().functions.size());
}

#define FOR_BOTH_DEVICES(TestClass)                                                                \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Images, TestClass,                                                                         \
        testing::Combine(testing::Values(Target::Device, Target::DeviceThumb),                     \
                         testing::Values(kBases[0], kBases[2])),                                   \
        NameOfParameters)

FOR_BOTH_DEVICES(Unwinding);
FOR_BOTH_DEVICES(UnwindingOfCalls);
FOR_BOTH_DEVICES(UnwindingOfFunctions);

}  // namespace
}  // namespace emulation
