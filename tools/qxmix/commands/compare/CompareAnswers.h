#pragma once

#include "sweeps/MapAnswers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// What is compared: the same amounts asked of two dispensers, or of one by two libraries.
struct CompareQuestions {
    MapQuestions a;
    MapQuestions b;               ///< as many mixes as `a`, and the same amounts
    bool isOneDispenser = false;  ///< then it counts, too, which cassette a note comes from
};

/// What changes for the customer. The order is from worst to best.
enum class Change { Danger, Lost, Other, Gained, Same };

/// In JSON and CSV.
const char* NameOf(Change change);

/// One amount that is answered differently.
struct CompareDifference {
    Change change = Change::Other;
    std::uint32_t amount = 0;
    std::uint16_t mixA = 0;
    std::uint16_t mixB = 0;
    MapCell a;
    MapCell b;
    std::string textA;  ///< for people
    std::string textB;
};

/// A comparison with everything that is told of it in any form.
struct CompareAnswers {
    std::array<std::uint64_t, 5> counts{};       ///< answers by change
    std::uint64_t sameDangers = 0;               ///< of those that are the same
    std::uint64_t bothDangers = 0;               ///< of the others: dangerous on both sides
    bool isOtherwise = false;                    ///< some differ otherwise than in their notes
    std::vector<CompareDifference> differences;  ///< worst first, then by mix and amount
    std::uint64_t amountCount = 0;               ///< amounts that were asked on both sides
    bool isComplete = true;                      ///< false: Ctrl-C came before the end
    bool hasCrash = false;

    std::uint64_t Count(Change change) const { return counts[static_cast<std::size_t>(change)]; }
};

CompareAnswers Compare(const CompareQuestions& questions, const MapAnswers& a, const MapAnswers& b);

ExitStatus ExitStatusOf(const CompareAnswers& answers);

}  // namespace qxmix
