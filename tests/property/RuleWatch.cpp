#include "RuleWatch.h"

#include <array>

#include "AskedRequest.h"
#include "Describe.h"

namespace property {

std::string RuleWatch::Watch(const RandomCase& random) {
    Answer answer;
    if (!ask_(random, answer)) {
        return "";
    }
    std::string broken;
    for (const AnswerRule& rule : AnswerRules()) {
        if (!rule.applies(random, answer)) {
            continue;
        }
        ++applied_[rule.name];
        const std::string wrong = rule.broken(random, answer, ask_);
        if (!wrong.empty()) {
            broken += std::string(rule.name) + ": " + wrong + "\n";
        }
    }
    return broken.empty() ? broken : broken + Describe(random.request.Bytes());
}

bool MayBeAsked(const RandomCase& random) {
    constexpr std::uint64_t kBudget = 20000;
    const AskedRequest asked(random);
    if (asked.IsPlain() && !asked.IsFirstFit()) {
        return true;
    }
    reference::RequestBytes request = random.request;
    std::array<std::uint8_t, reference::kResultBytes> result{};
    return reference::MixCalculate(random.object, request.Bytes(), result.data(), kBudget).finished;
}

}  // namespace property
