#include "FunctionTable.h"

#include "ArmCode.h"
#include "ImageError.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace image {

namespace {

constexpr std::uint32_t kWord = 4;
constexpr std::uint32_t kLongestProlog = 0xFF;
constexpr std::uint32_t kLongestFunction = 0x3FFFFF;

/// What a prolog has put on the stack.
struct Frame {
    std::uint32_t arguments = 0;  ///< bytes above what is saved, for arguments out of registers
    std::uint32_t saved = 0;      ///< registers, by bit
    std::uint32_t room = 0;       ///< bytes below them
};

/// The instructions of a program; data among them reads as an instruction that does nothing.
class Code {
public:
    explicit Code(const ElfFile& elf) : elf_(elf), marks_(elf.marks) {
        std::stable_sort(
            marks_.begin(), marks_.end(),
            [](const ElfMark& left, const ElfMark& right) { return left.address < right.address; });
    }

    std::uint32_t At(std::uint32_t address) const {
        constexpr std::uint32_t kNothing = 0xE1A00000;  // mov r0, r0
        for (const ElfSection& section : elf_.sections) {
            const std::uint32_t offset = address - section.address;
            if (address >= section.address && section.content.size() >= kWord &&
                offset <= section.content.size() - kWord) {
                return IsCode(address) ? ReadU32(section.content, offset) : kNothing;
            }
        }
        throw ImageError("a function without instructions at " + Hex(address));
    }

    /// Where instructions stand, by ranges.
    template <typename Visit>
    void ForEachRange(Visit visit) const {
        for (std::size_t index = 0; index < marks_.size(); ++index) {
            if (marks_[index].isCode) {
                visit(marks_[index].address, EndOf(index));
            }
        }
    }

private:
    bool IsCode(std::uint32_t address) const {
        const auto behind = std::upper_bound(
            marks_.begin(), marks_.end(), address,
            [](std::uint32_t place, const ElfMark& mark) { return place < mark.address; });
        return behind == marks_.begin() || (behind - 1)->isCode;
    }

    /// Up to the next mark, or the end of the section.
    std::uint32_t EndOf(std::size_t index) const {
        const std::uint32_t start = marks_[index].address;
        std::uint32_t end = start;
        for (const ElfSection& section : elf_.sections) {
            if (start >= section.address && start - section.address < section.size) {
                end = section.address + section.size;
            }
        }
        return index + 1 < marks_.size() ? std::min(end, marks_[index + 1].address) : end;
    }

    const ElfFile& elf_;
    std::vector<ElfMark> marks_;
};

/// Reads one function from its first instruction to its last.
class FunctionReader {
public:
    FunctionReader(const Code& code, const ElfFunction& function)
        : code_(code), function_(function), end_(function.address + function.size) {}

    void AddEntries(std::vector<FunctionEntry>& entries) {
        for (at_ = function_.address; at_ < end_;) {
            const std::uint32_t start = at_;
            if (!ReadProlog()) {
                ExpectNoFrame();
                at_ += kWord;
                continue;
            }
            const std::uint32_t prolog = (at_ - start) / kWord;
            if (start == function_.address) {
                ReadBody();
            } else {
                ReadStraightToItsEnd();
            }
            entries.push_back({start, prolog, (at_ - start) / kWord});
        }
    }

private:
    std::uint32_t Word() const { return code_.At(at_); }

    [[noreturn]] void Refuse(const char* what) const {
        throw ImageError(function_.name + " " + what + " at " + Hex(at_));
    }

    bool ReadProlog() {
        constexpr std::uint32_t kMostArguments = 16;  // four registers hold some
        const std::uint32_t arguments = arm::Reserved(Word());
        const bool hasArguments =
            arguments != 0 && arguments <= kMostArguments && at_ + kWord < end_;
        const std::uint32_t place = hasArguments ? at_ + kWord : at_;
        frame_ = {hasArguments ? arguments : 0, arm::Pushed(code_.At(place)), 0};
        if ((frame_.saved & arm::Bit(arm::kReturnAddress)) == 0) {
            return false;
        }
        for (at_ = place + kWord; at_ < end_ && arm::Reserved(Word()) != 0; at_ += kWord) {
            frame_.room += arm::Reserved(Word());
        }
        return true;
    }

    void ExpectNoFrame() const {
        if (arm::Writes(Word(), arm::kStackPointer)) {
            Refuse("moves the stack pointer outside a frame");
        }
        if (arm::Writes(Word(), arm::kReturnAddress)) {
            Refuse("loses its return address");
        }
    }

    void ReadBody() {
        while (at_ < end_) {
            if (arm::Writes(Word(), arm::kStackPointer)) {
                ReadEpilog();
            } else {
                at_ += kWord;
            }
        }
    }

    /// The frame given back whole, and the return, all under one condition.
    void ReadEpilog() {
        const std::uint32_t condition = arm::ConditionOf(Word());
        std::uint32_t room = frame_.room;
        for (; arm::Released(Word()) != 0; at_ += kWord) {
            ExpectCondition(condition);
            room -= arm::Released(Word());
        }
        const bool returns = ReadRestore(room);
        ExpectCondition(condition);
        at_ += kWord;
        if (frame_.arguments != 0) {
            if (returns || at_ >= end_ || arm::Released(Word()) != frame_.arguments) {
                Refuse("keeps room for arguments");
            }
            ExpectCondition(condition);
            at_ += kWord;
        }
        if (!returns) {
            if (at_ >= end_ || !arm::ReturnsByRegister(Word())) {
                Refuse("goes on without its frame");
            }
            ExpectCondition(condition);
            at_ += kWord;
        }
    }

    void ExpectCondition(std::uint32_t condition) const {
        if (arm::ConditionOf(Word()) != condition) {
            Refuse("takes down half a frame");
        }
    }

    /// @return whether the restored return address is also gone to.
    bool ReadRestore(std::uint32_t room) const {
        constexpr std::uint32_t kReturn = arm::Bit(arm::kReturnAddress);
        constexpr std::uint32_t kGoesThere = arm::Bit(arm::kProgramCounter);
        const std::uint32_t restored = arm::Popped(Word());
        const bool returns = (restored & kGoesThere) != 0;
        const std::uint32_t expected =
            returns ? (frame_.saved & ~kReturn) | kGoesThere : frame_.saved;
        if (room != 0 || restored != expected) {
            Refuse("moves the stack pointer inside a frame");
        }
        return returns;
    }

    /// A frame in the middle of a function: a call between saving and restoring, and nothing that
    /// could leave it otherwise.
    void ReadStraightToItsEnd() {
        constexpr std::uint32_t kScratch = 0x0000000F;
        const std::uint32_t saved = CountOf(frame_.saved);
        for (; at_ < end_; at_ += kWord) {
            if (arm::IsBranch(Word()) || arm::Writes(Word(), arm::kProgramCounter)) {
                Refuse("leaves a frame");
            }
            if (arm::Writes(Word(), arm::kStackPointer)) {
                const std::uint32_t restored = arm::Popped(Word());
                const bool sameButScratch = ((restored ^ frame_.saved) & ~kScratch) == 0;
                if (frame_.arguments + frame_.room != 0 || !sameButScratch ||
                    CountOf(restored) != saved) {
                    Refuse("moves the stack pointer inside a frame");
                }
                at_ += kWord;
                return;
            }
        }
        Refuse("ends inside a frame");
    }

    static std::uint32_t CountOf(std::uint32_t registers) {
        std::uint32_t count = 0;
        for (; registers != 0; registers &= registers - 1) {
            ++count;
        }
        return count;
    }

    const Code& code_;
    const ElfFunction& function_;
    const std::uint32_t end_;
    std::uint32_t at_ = 0;
    Frame frame_;
};

/// The functions in the order of their addresses, each once and up to the next: several names may
/// mean the same, and a function may run on into another one.
std::vector<ElfFunction> Sorted(const ElfFile& elf) {
    std::vector<ElfFunction> functions;
    std::copy_if(elf.functions.begin(), elf.functions.end(), std::back_inserter(functions),
                 [](const ElfFunction& function) { return function.size != 0; });
    std::sort(functions.begin(), functions.end(),
              [](const ElfFunction& left, const ElfFunction& right) {
                  return std::tie(left.address, right.size, left.name) <
                         std::tie(right.address, left.size, right.name);
              });
    functions.erase(std::unique(functions.begin(), functions.end(),
                                [](const ElfFunction& left, const ElfFunction& right) {
                                    return left.address == right.address;
                                }),
                    functions.end());
    for (std::size_t index = 0; index + 1 < functions.size(); ++index) {
        const std::uint32_t room = functions[index + 1].address - functions[index].address;
        functions[index].size = std::min(functions[index].size, room);
    }
    return functions;
}

/// Code that no symbol covers could have any frame.
void ExpectFunctionsEverywhere(const Code& code, const std::vector<ElfFunction>& functions) {
    code.ForEachRange([&functions](std::uint32_t address, std::uint32_t end) {
        while (address < end) {
            const auto behind = std::upper_bound(
                functions.begin(), functions.end(), address,
                [](std::uint32_t place, const ElfFunction& one) { return place < one.address; });
            if (behind == functions.begin() ||
                address - (behind - 1)->address >= (behind - 1)->size) {
                throw ImageError("code outside any function at " + Hex(address));
            }
            address = (behind - 1)->address + (behind - 1)->size;
        }
    });
}

const FunctionEntry* EntryAt(const std::vector<FunctionEntry>& entries, std::uint32_t address) {
    const auto behind = std::upper_bound(
        entries.begin(), entries.end(), address,
        [](std::uint32_t place, const FunctionEntry& entry) { return place < entry.start; });
    if (behind == entries.begin()) {
        return nullptr;
    }
    const FunctionEntry& entry = *(behind - 1);
    return (address - entry.start) / kWord < entry.length ? &entry : nullptr;
}

/// A jump from one frame into another would run code under an entry that is not its own.
void ExpectJumpsInsideFrames(const Code& code,
                             const std::vector<ElfFunction>& functions,
                             const std::vector<FunctionEntry>& entries) {
    for (const ElfFunction& function : functions) {
        for (std::uint32_t at = function.address; at < function.address + function.size;
             at += kWord) {
            const std::uint32_t word = code.At(at);
            if (!arm::IsBranch(word) && !arm::IsCall(word)) {
                continue;
            }
            const std::uint32_t target = arm::TargetOf(word, at);
            const FunctionEntry* const from = EntryAt(entries, at);
            const FunctionEntry* const to = EntryAt(entries, target);
            const bool enters = to != nullptr && to != from && target != to->start;
            const bool leaves = arm::IsBranch(word) && from != nullptr && to != from;
            if (enters || leaves) {
                throw ImageError(function.name + " jumps out of a frame or into one at " + Hex(at));
            }
        }
    }
}

}  // namespace

std::vector<FunctionEntry> FindFunctions(const ElfFile& elf) {
    const Code code(elf);
    const std::vector<ElfFunction> functions = Sorted(elf);
    ExpectFunctionsEverywhere(code, functions);
    std::vector<FunctionEntry> entries;
    for (const ElfFunction& function : functions) {
        if (function.address % kWord != 0 || function.size % kWord != 0) {
            throw ImageError(function.name + " cannot be a function at " + Hex(function.address));
        }
        FunctionReader(code, function).AddEntries(entries);
    }
    for (const FunctionEntry& entry : entries) {
        if (entry.prologLength > kLongestProlog || entry.length > kLongestFunction) {
            throw ImageError("a function too long for its entry at " + Hex(entry.start));
        }
    }
    ExpectJumpsInsideFrames(code, functions, entries);
    return entries;
}

Bytes EncodeFunctions(const std::vector<FunctionEntry>& functions) {
    constexpr std::uint32_t kWholeWords = 0x40000000;
    ByteWriter out;
    for (const FunctionEntry& entry : functions) {
        out.U32(entry.start);
        out.U32(entry.prologLength | (entry.length << 8U) | kWholeWords);
    }
    return out.Written();
}

}  // namespace image
