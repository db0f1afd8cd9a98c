#include "Dangers.h"

#include "findings/RuleTexts.h"

namespace qxmix {

const std::vector<Danger>& Dangers() {
    static const std::vector<Danger> dangers = {
        {Outcome::NoAnswer, "gives no answer", "QX402", AdviceOf("QX402")},
        {Outcome::Crashed, "crashes", "", ""},
        {Outcome::Overpaid, "overpays", "QX401", AdviceOf("QX401")},
        {Outcome::Overdrawn, "overdraws", "QX401", AdviceOf("QX401")},
    };
    return dangers;
}

const char* DoingOf(const Danger& danger, bool isProved) {
    return danger.outcome == Outcome::NoAnswer && isProved ? "never answers" : danger.doing;
}

std::vector<Finding> DangerFindings(std::uint16_t mix,
                                    const OutcomeCounts& count,
                                    const std::string& all,
                                    bool isProved) {
    std::vector<Finding> findings;
    for (const Danger& danger : Dangers()) {
        const std::uint64_t times = count(danger.outcome);
        if (times == 0 || *danger.id == '\0') {
            continue;
        }
        Finding finding;
        finding.id = danger.id;
        finding.severity = Severity::Error;
        finding.mix = mix;
        finding.pointer = "/mix";
        finding.message = "mix " + std::to_string(mix) + " " + DoingOf(danger, isProved) + " on " +
                          std::to_string(times) + " of " + all;
        finding.advice = danger.advice;
        if (danger.outcome == Outcome::NoAnswer) {
            finding.isProved = isProved;
        }
        findings.push_back(finding);
    }
    return findings;
}

}  // namespace qxmix
