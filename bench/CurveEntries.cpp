#include "Registration.h"

#include "Entrants.h"

#include <utility>

namespace bench {
namespace {

constexpr unsigned kQuestions = 101;        ///< of a point
constexpr unsigned kComparedQuestions = 9;  ///< of these, for the reference
constexpr std::uint32_t kUsualAmount = 2000;
constexpr unsigned kUsualUnits = 5;
constexpr std::uint16_t kUsualLimit = 60;

/// Full units, and an amount within a tenth of the given one.
Question QuestionAbout(Drawer& draw, std::uint32_t amount, unsigned units, std::uint16_t limit) {
    const std::uint32_t about = draw.Between(amount - amount / 10, amount + amount / 10);
    return {draw.Units(units, kFull), about - about % 5, limit, false};
}

/// One point of a curve: each walked algorithm, and the reference where it gets to an answer.
void EnterPoint(const char* curve,
                std::uint32_t at,
                std::uint32_t amount,
                unsigned units,
                std::uint16_t limit) {
    const std::string set = std::string(curve) + "=" + std::to_string(at);
    Drawer draw(3);
    for (std::size_t index = 0; index < kQuestions; ++index) {
        const Question asked = QuestionAbout(draw, amount, units, limit);
        for (const Algorithm algorithm : kWalkedAlgorithms) {
            const Question question = InOrderOf(algorithm, asked);
            EnterModule(set, index, algorithm, question);
            if (index < kComparedQuestions) {
                EnterReference(set, index, algorithm, question, kStepBudget);
            }
        }
    }
}

}  // namespace

void RegisterCurves() {
    for (const std::uint32_t amount :
         {20U, 50U, 100U, 200U, 500U, 1000U, 2000U, 5000U, 10000U, 20000U}) {
        EnterPoint("amount", amount, amount, kUsualUnits, kUsualLimit);
    }
    for (const unsigned units : {2U, 3U, 4U, 5U}) {
        EnterPoint("units", units, kUsualAmount, units, kUsualLimit);
    }
    for (const unsigned limit : {10U, 20U, 40U, 60U, 100U, 200U, 400U, 1000U}) {
        EnterPoint("limit", limit, kUsualAmount, kUsualUnits, static_cast<std::uint16_t>(limit));
    }
}

}  // namespace bench
