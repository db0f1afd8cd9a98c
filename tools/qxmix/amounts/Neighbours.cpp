#include "Neighbours.h"

#include "mixes/MixTraits.h"
#include "options/MixList.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr Milliseconds kWholeTime{2000};
constexpr std::uint32_t kMostAmounts = 500;

/// Asks while there is time.
class TimedAsker {
public:
    TimedAsker(const MixQuestions& questions, Asker& asker)
        : dispenser_(questions.dispenser), request_(questions.requests.front()), asker_(asker),
          end_(Clock::now() + kWholeTime) {}

    bool HasTime() const { return Clock::now() < end_; }

    Answer Ask(std::uint16_t mix, std::uint32_t amount) {
        MixRequest request = request_;
        request.usMixNumber = mix;
        request.ulAmount = amount;
        const auto left = std::chrono::ceil<Milliseconds>(end_ - Clock::now());
        const Milliseconds deadline = std::clamp(left, Milliseconds(1), kSideDeadline);
        return AskSilently(asker_, dispenser_, request, deadline);
    }

private:
    const Dispenser& dispenser_;
    const MixRequest& request_;
    Asker& asker_;
    Clock::time_point end_;
};

/// Amounts to try on one side, nearest first.
class Side {
public:
    /// @param next  the first; out of 1 to 2^32 - 1 when there is none.
    Side(std::int64_t next, std::int64_t step) : next_(next), step_(step) {}

    bool IsDone() const {
        return found || tried_ == kMostAmounts || next_ < 1 || next_ > std::int64_t{UINT32_MAX};
    }

    void TryNext(TimedAsker& asker, std::uint16_t mix) {
        const Answer answer = asker.Ask(mix, static_cast<std::uint32_t>(next_));
        next_ += step_;
        ++tried_;
        if (answer.outcome == Outcome::Paid) {
            found = answer;
        }
    }

    std::optional<Answer> found;

private:
    std::int64_t next_;
    std::int64_t step_;
    std::uint32_t tried_ = 0;
};

void AskOtherMixes(const Answer& answer,
                   std::uint32_t amount,
                   TimedAsker& asker,
                   Surroundings& around) {
    for (const std::uint16_t mix : AllMixes()) {
        if (mix == answer.mix || !asker.HasTime()) {
            continue;
        }
        const Answer other = asker.Ask(mix, amount);
        if (other.outcome == Outcome::Paid) {
            around.payers.push_back(mix);
        } else if (!other.IsAnswered()) {
            around.unanswered.push_back(mix);
        } else if (other.IsDangerous()) {
            around.dangerous.push_back(mix);
        }
    }
}

void AskOtherAmounts(const MixQuestions& questions,
                     std::uint16_t mix,
                     TimedAsker& asker,
                     Surroundings& around) {
    const Dispenser& dispenser = questions.dispenser;
    const Amounts amounts = AmountsWithDefaults(dispenser);
    const std::int64_t step = *amounts.step;
    const std::int64_t amount = questions.amount;
    const std::int64_t first = *amounts.min;
    // The last of the steps that is not above the amount.
    const std::int64_t over = ((amount - first) % step + step) % step;
    Side below(over == 0 ? amount - step : amount - over, -step);
    Side above(amount - over + step, step);
    while (asker.HasTime() && (!below.IsDone() || !above.IsDone())) {
        if (!below.IsDone()) {
            below.TryNext(asker, mix);
        }
        if (!above.IsDone()) {
            above.TryNext(asker, mix);
        }
    }
    around.below = below.found;
    around.above = above.found;
}

}  // namespace

Surroundings AskAround(const MixQuestions& questions, const Answer& answer, Asker& asker) {
    Surroundings around;
    TimedAsker timed(questions, asker);
    try {
        AskOtherMixes(answer, questions.amount, timed, around);
        if (answer.outcome != Outcome::Paid) {
            AskOtherAmounts(questions, answer.mix, timed, around);
        }
    } catch (const Interruption&) {
        around.isComplete = false;
    }
    return around;
}

}  // namespace qxmix
