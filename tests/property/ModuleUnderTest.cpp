#include "ModuleUnderTest.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "ErrorCode.h"

namespace property {
namespace {

constexpr std::uint8_t kGuard = 0xC3;
constexpr std::uint8_t kOldResult = 0xA5;
constexpr std::size_t kMaxShift = 8;

/// Memory for a record with guard bytes around it, at any distance from an aligned address.
template <std::size_t Size>
class GuardedRecord {
public:
    explicit GuardedRecord(unsigned shift) : shift_(shift) { bytes_.fill(kGuard); }

    std::uint8_t* Bytes() { return bytes_.data() + kMaxShift + shift_; }

    bool GuardsAreIntact() const {
        const auto isGuard = [](std::uint8_t byte) { return byte == kGuard; };
        const auto first = bytes_.begin() + kMaxShift + shift_;
        return std::all_of(bytes_.begin(), first, isGuard) &&
               std::all_of(first + Size, bytes_.end(), isGuard);
    }

private:
    unsigned shift_;
    alignas(8) std::array<std::uint8_t, kMaxShift + Size + 2 * kMaxShift> bytes_{};
};

template <std::size_t Size>
void CompareBytes(const char* name,
                  const std::array<std::uint8_t, Size>& expected,
                  const std::array<std::uint8_t, Size>& actual,
                  std::ostringstream& text) {
    if (expected == actual) {
        return;
    }
    for (std::size_t i = 0; i < Size; ++i) {
        if (expected[i] != actual[i]) {
            text << name << " byte " << i << ": expected " << unsigned{expected[i]} << ", got "
                 << unsigned{actual[i]} << "; ";
        }
    }
}

}  // namespace

std::string Difference(const Answer& expected, const Answer& actual) {
    std::ostringstream text;
    if (expected.returned != actual.returned) {
        text << "returned: expected " << expected.returned << ", got " << actual.returned << "; ";
    }
    if (expected.lastCode != actual.lastCode) {
        text << "last code: expected \"" << expected.lastCode << "\", got \"" << actual.lastCode
             << "\"; ";
    }
    CompareBytes("result", expected.result, actual.result, text);
    CompareBytes("request", expected.request, actual.request, text);
    return text.str();
}

ModuleUnderTest::ModuleUnderTest() {
    outer_ = CreateMixAlgorithm(this);
    TakeErrorCode();  // whatever another test has left
}

ModuleUnderTest::~ModuleUnderTest() {
    DeleteMixAlgorithm();
    created_.back()->Destroy(1);  // the inner object, which the module leaves to its host
}

std::int32_t ModuleUnderTest::OnObjectCreated(IMixAlgorithm* object) noexcept {
    created_.push_back(object);
    return 0;
}

bool ModuleUnderTest::Calculate(const reference::Object& object, unsigned shift, Answer& answer) {
    auto* inner = static_cast<CMixAlgorithm*>(created_.back());
    inner->usFirstMixNumber = object.first;
    inner->usLastMixNumber = object.last;
    inner->ulCstMinimum4Mix6 = object.cstMinimum;
    GuardedRecord<reference::kRequestBytes> request(shift);
    GuardedRecord<reference::kResultBytes> result(shift);
    std::copy(answer.request.begin(), answer.request.end(), request.Bytes());
    std::fill_n(result.Bytes(), reference::kResultBytes, kOldResult);
    answer.returned = outer_->MixCalculate(reinterpret_cast<MixRequest*>(request.Bytes()),
                                           reinterpret_cast<MixResult*>(result.Bytes()));
    answer.lastCode = TakeErrorCode();
    std::copy_n(request.Bytes(), reference::kRequestBytes, answer.request.begin());
    std::copy_n(result.Bytes(), reference::kResultBytes, answer.result.begin());
    return request.GuardsAreIntact() && result.GuardsAreIntact();
}

}  // namespace property
