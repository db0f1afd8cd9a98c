#pragma once

#include "answers/Answer.h"
#include "dispenser/Dispenser.h"
#include "json/JsonName.h"
#include "options/AmountRange.h"
#include "workers/Asker.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

struct LintCase;
struct LintMix;

/// A cassette that is filled, changed or added.
struct Loading {
    enum class Kind { Service, Fill, Add, Replace };
    Kind kind = Kind::Fill;
    std::size_t place = 0;  ///< in the dispenser; behind its last cassette for a further one
    Cassette cassette;      ///< what is there then
};

/// The dispenser with that cassette.
Dispenser WithLoading(const Dispenser& dispenser, const Loading& loading);

/// What would make a mix pay amounts that it does not, each found by asking the module.
struct LintCures {
    std::size_t count = 0;               ///< amounts
    std::vector<std::uint16_t> payers;   ///< other mixes that pay all of them
    std::uint16_t bestPayer = 0;         ///< 0, or else the one that pays most of them ...
    std::size_t paidByBest = 0;          ///< ... which are so many
    std::optional<Loading> loading;      ///< with it this mix pays them, and what it paid before
    std::size_t paidByLoading = 0;       ///< how many of them: fewer than all if it paid nothing
    std::optional<std::uint16_t> limit;  ///< with it this mix pays them
    std::optional<AmountRange> amounts;  ///< of those asked: this mix pays all of these
};

/// Looks for cures by asking the module about changed dispensers.
class CureFinder {
public:
    CureFinder(const LintCase& lint, Asker& asker) : lint_(lint), asker_(asker) {}

    /// @param unpaid  amounts that the mix does not pay, in order; not empty.
    LintCures Find(const LintMix& mix, const std::vector<std::uint32_t>& unpaid);

    /// A limit under which the mix pays them.
    std::optional<std::uint16_t> FindLimit(const LintMix& mix,
                                           const std::vector<std::uint32_t>& unpaid);

private:
    std::optional<Loading> FindLoading(const LintMix& mix,
                                       const std::vector<std::uint32_t>& unpaid);
    void
    FindBestLoading(const LintMix& mix, const std::vector<std::uint32_t>& unpaid, LintCures& cures);
    bool
    Cures(const Dispenser& changed, const LintMix& mix, const std::vector<std::uint32_t>& unpaid);
    std::optional<Answer> Ask(const Dispenser& changed, std::uint16_t mix, std::uint32_t amount);

    const LintCase& lint_;
    Asker& asker_;
    std::uint64_t questionsLeft_ = 0;
    unsigned missesLeft_ = 0;
};

/// Items of a cassette that is tried full.
constexpr std::uint32_t kFullCassette = 2000;

/// Changes of single cassettes that might make a mix pay more, what is easiest first: cassettes
/// brought into service, filled, added, and put in the place of one that is not missed.
///
/// @param most  largest amount that is to be paid.
std::vector<Loading> LoadingsToTry(const LintCase& lint, const LintMix& mix, std::uint32_t most);

/// Cures for people, the cheapest first: "mixes 2 3 pay them; or load 10 EUR: ...". Empty without
/// any.
std::string CuresText(const LintCase& lint, const LintCures& cures);

/// The same, an object each.
Json CuresJson(const LintCures& cures);

}  // namespace qxmix
