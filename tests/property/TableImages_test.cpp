#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "CMixAlgorithm.h"
#include "Describe.h"
#include "RandomRequests.h"
#include "Settings.h"

namespace property {
namespace {

using reference::Ordering;
using Image = std::vector<std::uint8_t>;

constexpr std::uint8_t kUntouched = 0xA5;
constexpr std::uint64_t kCases = 20000;  // of each kind

using Operation = void (CMixAlgorithm::*)(const MixRequest&, LcuTable&) const noexcept;

struct Subject {
    Ordering ordering;
    Operation operation;
};

const Subject kSubjects[] = {
    {Ordering::ByDenomination, &CMixAlgorithm::SortLCUByDenomination},
    {Ordering::ByTotalAmount, &CMixAlgorithm::SortLCUByTotalAmount},
    {Ordering::ByDenominationWithoutLow, &CMixAlgorithm::SortLCUByDenominationWithoutLOWCST},
    {Ordering::ByDenominationWithoutBelowMinimum,
     &CMixAlgorithm::SortLCUByDenomWithoutCSTBelowCSTMin},
    {Ordering::ByTotalAmountWithoutBelowMinimum,
     &CMixAlgorithm::SortLCUByTotalAmountWithoutCSTBelowCSTMin},
};

class IgnoringHost final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm*) noexcept override { return 0; }
};

class TableImages : public testing::TestWithParam<Kind> {
protected:
    /// Calls check with many requests of the kind, as the host hands them over and as records.
    template <class Check>
    void ForEachRequest(Check check) {
        const std::uint64_t seed = Setting("QXMIX_SEED", 1);
        for (std::uint64_t number = 0; number < kCases && !HasFailure(); ++number) {
            Draw draw(seed, number);
            const RandomCase random = MakeRandomCase(GetParam(), draw);
            MixRequest request;
            std::memcpy(&request, random.request.Bytes(), sizeof request);
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", case " << number << "\n"
                                            << Describe(random.request.Bytes()));
            check(random, request);
        }
    }

    static Image BytesOf(const LcuTable& table) {
        Image image(sizeof table);
        std::memcpy(image.data(), &table, sizeof table);
        return image;
    }

    static LcuTable UntouchedTable() {
        LcuTable table;
        std::memset(static_cast<void*>(&table), kUntouched, sizeof table);
        return table;
    }

    IgnoringHost host_;
    CMixAlgorithm algorithm_{&host_};
};

TEST_P(TableImages, AreAlikeForTheFullTable) {
    ForEachRequest([](const RandomCase& random, const MixRequest& request) {
        Image expected(reference::kTableBytes, kUntouched);
        reference::BuildTableImage(random.request.Bytes(), expected.data());
        LcuTable table = UntouchedTable();
        CMixAlgorithm::BuildLCUTable(request, table);
        EXPECT_TRUE(expected == BytesOf(table));
    });
}

TEST_P(TableImages, AreAlikeForEveryOrdering) {
    ForEachRequest([this](const RandomCase& random, const MixRequest& request) {
        algorithm_.ulCstMinimum4Mix6 = random.object.cstMinimum;
        for (const Subject& subject : kSubjects) {
            Image expected(reference::kTableBytes, kUntouched);
            reference::OrderedTableImage(subject.ordering, random.object, random.request.Bytes(),
                                         expected.data());
            LcuTable table = UntouchedTable();
            (algorithm_.*subject.operation)(request, table);
            EXPECT_TRUE(expected == BytesOf(table))
                << "ordering " << static_cast<int>(subject.ordering);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Random,
                         TableImages,
                         testing::ValuesIn(kAllKinds),
                         [](const testing::TestParamInfo<Kind>& one) {
                             return std::string(NameOf(one.param));
                         });

}  // namespace
}  // namespace property
