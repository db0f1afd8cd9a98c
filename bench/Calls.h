#pragma once

#include "Questions.h"

#include "Records.h"
#include "Reference.h"

namespace bench {

/// A whole calculation, as a host asks for it, of the module and of the reference.
class WholeCall {
public:
    WholeCall(const Question& question, unsigned mixNumber);

    /// Through the exported function and the object's slots. Only the amount is restored between
    /// calls: nothing else that a call rewrites is read by the next.
    std::int32_t RunModule() noexcept;

    reference::Outcome RunReference(std::uint64_t stepBudget);

    const MixResult& Result() const noexcept { return result_; }

private:
    std::uint32_t amount_;
    MixRequest request_;
    MixResult result_{};
};

}  // namespace bench
