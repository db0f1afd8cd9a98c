#include "CMixAlgorithm.h"
#include "MixPlans.h"
#include "PlatformApi.h"
#include "ResultCodes.h"

#include <cstring>

namespace {

// Source: the mix types and sub-types of the XFS CDM interface.
constexpr std::uint16_t kMixAlgorithm = 1;
constexpr std::uint16_t kMinimumBills = 1;
constexpr std::uint16_t kEqualEmptying = 2;
constexpr std::uint16_t kMaximumCashUnits = 3;

struct MixType {
    std::uint16_t subType;
    const char* name;
};

// clang-format off
constexpr MixType kMixTypes[] = {
    {kMinimumBills,     "Minimum Notes"},                         // 1
    {kMaximumCashUnits, "Equal Notes"},                           // 2
    {kEqualEmptying,    "Equal Emptying"},                        // 3
    {kEqualEmptying,    "Varnholt Equal Emptying"},               // 4
    {kMinimumBills,     "Varnholt Minimum Notes"},                // 5
    {kMinimumBills,     "Varnholt Minimum Notes 2"},              // 6
    {kMaximumCashUnits, "Varnholt Maximum Number of CashUnits"},  // 7
    {kEqualEmptying,    "Varnholt Equal Emptying 2"},             // 8
    {kEqualEmptying,    "Varnholt Equal Emptying 3"},             // 9
    {kMaximumCashUnits, "Varnholt Maximum Notes"},                // 10
};
// clang-format on
constexpr unsigned kKnownMixTypes = sizeof(kMixTypes) / sizeof(kMixTypes[0]);
static_assert(kKnownMixTypes == kMixCount, "a mix has a row here and one in MixPlans.h");

/// A host can write usNumMixTypes and so ask for more entries than there are mixes: the surplus
/// ones have the sub-type of equal emptying and the name of the last mix.
MixType MixTypeAt(unsigned index) noexcept {
    return index < kKnownMixTypes ? kMixTypes[index]
                                  : MixType{kEqualEmptying, kMixTypes[kKnownMixTypes - 1].name};
}

/// A place of the list; like the records it may lie at any address.
using Place = AnywherePointer<WFSCDMMIXTYPE>;

/// Allocates memory that is freed with the list; without success the place stays as it is.
template <typename Content>
HRESULT AllocateInList(Place* list, ULONG size, AnywherePointer<Content>& place) noexcept {
    void* memory = nullptr;
    const HRESULT result = WFMAllocateMore(size, list, &memory);
    if (result == kSuccess) {
        place = static_cast<Content*>(memory);
    }
    return result;
}

HRESULT AppendMixType(Place* list, unsigned index) noexcept {
    HRESULT result = AllocateInList(list, sizeof(WFSCDMMIXTYPE), list[index]);
    if (result != kSuccess) {
        return result;
    }
    const MixType mixType = MixTypeAt(index);
    WFSCDMMIXTYPE& entry = *list[index];
    entry.usMixNumber = static_cast<std::uint16_t>(index + 1);
    entry.usMixType = kMixAlgorithm;
    entry.usSubType = mixType.subType;
    const auto nameSize = static_cast<ULONG>(std::strlen(mixType.name) + 1);
    result = AllocateInList(list, nameSize, entry.lpszName);
    if (result == kSuccess) {
        std::memcpy(entry.lpszName, mixType.name, nameSize);
    }
    return result;
}

}  // namespace

std::int32_t CMixAlgorithm::GetMixTypes(WFSCDMMIXTYPE*** list) noexcept {
    const unsigned count = usNumMixTypes;
    const auto size = static_cast<ULONG>((count + 1) * sizeof(void*));
    HRESULT result =
        WFMAllocateBuffer(size, WFS_MEM_SHARE | WFS_MEM_ZEROINIT, reinterpret_cast<void**>(list));
    if (result != kSuccess) {
        return result;
    }
    auto* const places = reinterpret_cast<Place*>(*list);
    for (unsigned index = 0; index < count && result == kSuccess; ++index) {
        result = AppendMixType(places, index);
    }
    if (result == kSuccess) {
        places[count] = nullptr;
    }
    return result;
}
