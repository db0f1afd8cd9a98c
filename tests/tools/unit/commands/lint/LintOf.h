#pragma once

#include "commands/lint/LintAnswers.h"
#include "commands/lint/LintRules.h"
#include "dispenser/InlineDispenser.h"
#include "dispenser/StoredValues.h"
#include "module/RegistryImage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qxmix {

/// A range of amounts asked of mixes.
///
/// @param slow  what a mix may take for an amount before it is told to be slow.
inline LintQuestions QuestionsOf(const Dispenser& dispenser,
                                 const std::vector<std::uint16_t>& mixes,
                                 const AmountRange& range,
                                 Milliseconds deadline,
                                 Milliseconds slow) {
    LintQuestions questions;
    questions.map.dispenser = dispenser;
    questions.map.mixes = mixes;
    questions.map.from = range.from;
    questions.map.to = range.to;
    questions.map.step = range.step;
    questions.map.deadline = deadline;
    questions.slow = slow;
    return questions;
}

/// A dispenser that the tests of the rules look at; what a test does not say is as it should be.
struct LintOf {
    explicit LintOf(const char* inlined) : dispenser(ReadInlineDispenser(inlined)) {}

    Dispenser dispenser;
    std::vector<std::uint16_t> mixes = {1};
    std::vector<std::uint32_t> amounts = {100};
    AmountRange range;                    // only what the amounts are said to be steps of
    std::vector<std::string> currencies;  // all that are asked; empty: the dispenser's own
    std::string registry;                 // empty: the dispenser's values beside the start content
    std::string registryFile;
    bool isRangeNamed = true;
    Milliseconds deadline{50};
    Milliseconds slow{5000};  // other work of the machine makes no mix slow
    std::string library = QXMIX_MODULE;

    LintOf& Mixes(std::vector<std::uint16_t> asked) {
        mixes = std::move(asked);
        return *this;
    }

    LintOf& Amounts(std::vector<std::uint32_t> asked) {
        amounts = std::move(asked);
        return *this;
    }

    /// All amounts from one to another, and the dispenser's buttons.
    LintOf& Range(const AmountRange& asked) {
        range = asked;
        amounts = AmountsAndButtons(Questions().map);
        return *this;
    }

    LintOf& Limit(std::uint16_t limit) {
        dispenser.maxDispenseItems = limit;
        return *this;
    }

    LintOf& Exponent(std::int16_t exponent) {
        dispenser.exponent = exponent;
        return *this;
    }

    LintOf& Partial() {
        dispenser.partial = true;
        return *this;
    }

    LintOf& Position(std::size_t cassette, std::uint16_t position) {
        dispenser.cassettes[cassette].position = position;
        return *this;
    }

    LintOf& Library(const char* asked) {
        library = asked;
        return *this;
    }

    /// A value of REG_SZ.
    LintOf& Minimum(const std::string& text) {
        dispenser.registry.push_back({kCstMinimum4Mix6, kRegSz, TextBytes(text)});
        return *this;
    }

    /// What the rules look at: the module is asked.
    LintCase Case() const {
        LintQuestions questions = Questions();
        questions.map.listed = amounts;
        const OpenOrder order{library, questions.registry};
        Asker asker(order.library, order.registry);
        return AskLint(questions, order, asker, nullptr, [](const WorkProgress&) {});
    }

    /// What a rule finds.
    std::vector<LintFinding> Findings(const std::string& id) const {
        std::vector<LintFinding> found;
        for (const LintFinding& finding : CheckAll(Case())) {
            if (finding.id == id) {
                found.push_back(finding);
            }
        }
        return found;
    }

private:
    LintQuestions Questions() const {
        LintQuestions questions = QuestionsOf(dispenser, mixes, range, deadline, slow);
        questions.registry = registry.empty() ? RegistryOf(dispenser.registry) : registry;
        questions.registryFile = registryFile;
        questions.isRangeNamed = isRangeNamed;
        questions.currencies = currencies;
        return questions;
    }
};

/// The fields that a rule speaks of, and what it says: "/mix: message".
inline std::vector<std::string> Said(const LintOf& lint, const std::string& id) {
    std::vector<std::string> said;
    for (const LintFinding& finding : lint.Findings(id)) {
        said.push_back(finding.pointer + ": " + finding.message);
    }
    return said;
}

using Lines = std::vector<std::string>;

}  // namespace qxmix
