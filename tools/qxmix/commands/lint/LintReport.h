#pragma once

#include "LintCase.h"
#include "findings/Findings.h"
#include "json/Json.h"

#include <functional>
#include <optional>

namespace qxmix {

/// Amounts that a finding is about.
struct LintAmounts {
    std::uint64_t count = 0;
    std::uint64_t of = 0;
    Json first = Json::array();  ///< the first of them, each an object
};

struct LintFinding : Finding {
    std::optional<LintAmounts> amounts;
    Json cures = Json::array();           ///< what the advice names, each an object
    std::optional<std::string> accepted;  ///< why it is wanted as it is; none: it is not
};

/// How a finding tells of the answers that it is about.
struct LintAnswersText {
    using Tell = std::function<std::string(const LintAnswer&)>;

    std::string before;      ///< "mix 4 overpays"; "on 20 amounts" follows
    bool tellsAll = false;   ///< "mix 4 refuses"; "20 of 100 amounts" follows
    Tell tell;               ///< one of them: "10 pays 60"
    std::string after = "";  ///< what stands behind their number: ", 3 of them proved"
    std::string pointer = "/mix";
    std::string advice = "";  ///< instead of the rule's own, if not empty
    std::function<Json(const LintAnswer&)> details = nullptr;  ///< more about one in JSON
    const LintCures* cures = nullptr;                          ///< those that the advice names
};

/// Amounts that a finding lists one by one.
constexpr std::size_t kListedAmounts = 10;

/// Takes what one rule finds.
class LintReport {
public:
    /// @param pattern  id, severity and advice of the rule's findings, and the currency that they
    ///   tell.
    LintReport(const LintCase& lint, Finding pattern, std::vector<LintFinding>& findings)
        : lint_(lint), pattern_(std::move(pattern)), findings_(findings) {}

    /// Adds a finding about a field.
    ///
    /// @param mixes   those that it concerns, if it does not concern the dispenser itself; nothing
    ///   is added when there are none.
    /// @param advice  instead of the rule's own, if not empty.
    void Add(const std::string& pointer,
             const std::string& message,
             const std::optional<std::vector<std::uint16_t>>& mixes = std::nullopt,
             const std::string& advice = "");

    /// Adds a finding about answers of one mix; nothing is added when there are none.
    void AddAnswers(const LintMix& mix,
                    const std::vector<LintAnswer>& answers,
                    const LintAnswersText& text);

    /// Adds a finding that is complete, if it is one of this rule.
    void AddOwn(const Finding& finding);

    /// Adds a finding about a mix, with cures of what it does.
    void AddCured(const LintMix& mix,
                  const std::string& pointer,
                  const std::string& message,
                  const std::string& advice,
                  const LintCures& cures);

    /// Makes what this rule finds from now on as grave as that.
    void Become(Severity severity) { pattern_.severity = severity; }

    /// Whether an earlier rule found something about a mix.
    bool Has(const std::string& id, std::uint16_t mix) const;

private:
    /// A message as it is told, with the currency.
    std::string Told(const std::string& message) const;

    const LintCase& lint_;
    Finding pattern_;
    std::vector<LintFinding>& findings_;
};

/// "mix 4"
std::string MixText(const LintMix& mix);

/// Tells no more of answers than their amounts.
LintAnswersText::Tell AmountsOf(const LintCase& lint);

/// "70.50"
std::string AmountText(const LintCase& lint, std::uint32_t amount);

/// "10 pays 60"
std::string PaidText(const LintCase& lint, const LintAnswer& answer);

/// "/cassettes/2/status"
std::string CassettePointer(std::size_t cassette, const std::string& field);

/// A note of a cassette as people call it: "20 EUR".
std::string NoteText(const Cassette& cassette);

}  // namespace qxmix
