#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "AnswerRules.h"

namespace property {

/// Holds random requests of all kinds to all rules.
class RuleWatch {
public:
    explicit RuleWatch(Asker ask) : ask_(std::move(ask)) {}

    /// Asks one request, and what its rules want to know besides.
    ///
    /// @return what is broken, in words; empty when nothing is.
    std::string Watch(const RandomCase& random);

    /// How often each rule had something to say.
    const std::map<std::string, std::uint64_t>& Applied() const { return applied_; }

private:
    Asker ask_;
    std::map<std::string, std::uint64_t> applied_;
};

/// Whether a request may be asked: of first-fit emptying, and of numbers around 2^31 and beyond,
/// which may take years, only what the second implementation comes to the end of. It does not
/// judge.
bool MayBeAsked(const RandomCase& random);

}  // namespace property
