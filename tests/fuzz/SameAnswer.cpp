#include "SameAnswer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "Describe.h"
#include "ModuleUnderTest.h"

namespace fuzz {
namespace {

// Enough for searches of some size, little enough for hundreds of inputs a second.
constexpr std::uint64_t kStepBudget = 20000;

}  // namespace

void ExpectSameAnswer(const reference::Object& object,
                      const reference::RequestBytes& request,
                      unsigned shift) {
    static property::ModuleUnderTest module;
    property::Answer expected;
    std::copy_n(request.Bytes(), reference::kRequestBytes, expected.request.begin());
    property::Answer actual = expected;
    const reference::Outcome outcome = reference::MixCalculate(object, expected.request.data(),
                                                               expected.result.data(), kStepBudget);
    if (!outcome.finished) {
        return;  // the module may take as long: it answers the same, not necessarily sooner
    }
    expected.returned = outcome.returned;
    expected.lastCode = outcome.lastCode;
    const bool intact = module.Calculate(object, shift, actual);
    const std::string difference = property::Difference(expected, actual);
    if (!intact || !difference.empty()) {
        std::fprintf(stderr, "%s%s\nobject: mixes %u to %u, minimum %u\n%s\n",
                     intact ? "" : "wrote beside its records; ", difference.c_str(),
                     unsigned{object.first}, unsigned{object.last}, object.cstMinimum,
                     property::Describe(request.Bytes()).c_str());
        std::abort();
    }
}

}  // namespace fuzz
