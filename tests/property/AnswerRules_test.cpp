/// What holds of every answer, watched over random requests: a judge that knows no right answer.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "RuleWatch.h"
#include "Settings.h"

namespace property {
namespace {

TEST(AnswerRules, HoldForRandomRequestsOfEveryKind) {
    ModuleUnderTest module;
    RuleWatch watch([&module](const RandomCase& random, Answer& answer) {
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
        return MayBeAsked(random) && module.Calculate(random.object, 0, answer);
    });
    const std::uint64_t seed = Setting("QXMIX_SEED", 1);
    const std::uint64_t each = Setting("QXMIX_CASES", 200000) / 10;
    unsigned broken = 0;
    for (const Kind kind : kAllKinds) {
        for (std::uint64_t number = 0; number < each && broken < 5; ++number) {
            Draw draw(seed, number);
            const std::string wrong = watch.Watch(MakeRandomCase(kind, draw));
            if (!wrong.empty()) {
                ++broken;
                ADD_FAILURE() << NameOf(kind) << ", seed " << seed << ", case " << number << ": "
                              << wrong;
            }
        }
    }
    for (const AnswerRule& rule : AnswerRules()) {
        const auto found = watch.Applied().find(rule.name);
        const std::uint64_t applied = found == watch.Applied().end() ? 0 : found->second;
        EXPECT_GT(applied, each / 100) << rule.name << " has nothing to say";
        std::cout << applied << " answers: " << rule.name << '\n';
    }
}

/// Spoils an answer in one of the ways that a fault could.
void Spoil(Draw& draw, Answer& answer) {
    const std::uint32_t position = draw.Below(reference::kMaxUnits);
    std::uint8_t* const items = &answer.result[4U * position];
    switch (draw.Below(6)) {
    case 0:
        reference::WriteU32(items, reference::ReadU32(items) + draw.Between(1, 3));
        break;
    case 1:
        answer.result.fill(0);
        break;
    case 2:
        answer.returned = draw.Percent(50) ? -306 : 0;
        break;
    case 3:
        answer.lastCode = draw.Percent(50) ? "971A2" : "97194";
        break;
    case 4:
        ++answer.request[draw.Below(reference::kRequestBytes)];
        break;
    default:
        reference::WriteU32(&answer.request[16], draw.Below(1000));
        break;
    }
}

TEST(AnswerRules, AreEachBrokenBySomeWrongAnswer) {
    ModuleUnderTest module;
    Draw faults(1, 0);
    bool spoils = false;
    RuleWatch watch([&](const RandomCase& random, Answer& answer) {
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
        if (!MayBeAsked(random) || !module.Calculate(random.object, 0, answer)) {
            return false;
        }
        if (spoils) {
            Spoil(faults, answer);
        }
        return true;
    });
    std::string broken;
    for (std::uint64_t number = 0; number < 20000; ++number) {
        Draw draw(2, number);
        spoils = number % 2 == 0;
        broken += watch.Watch(MakeRandomCase(Kind::Adversarial, draw));
    }
    for (const AnswerRule& rule : AnswerRules()) {
        EXPECT_NE(broken.find(std::string(rule.name) + ": "), std::string::npos) << rule.name;
    }
}

}  // namespace
}  // namespace property
