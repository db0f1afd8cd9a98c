#include "Neighbours.h"
#include "dispenser/ReadableMoney.h"
#include "json/Json.h"
#include "options/MixList.h"
#include "terminal/Terminal.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

/// "70 = 1x50 2x10"
std::string NeighbourText(const Dispenser& dispenser, const Answer& neighbour) {
    std::vector<std::pair<std::string, std::uint64_t>> items;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const std::uint32_t taken = neighbour.taken[index];
        const std::string worth = dispenser.cassettes[index].Worth().ShortText();
        const auto same = std::find_if(items.begin(), items.end(),
                                       [&worth](const auto& item) { return item.first == worth; });
        if (same != items.end()) {
            same->second += taken;
        } else if (taken != 0) {
            items.emplace_back(worth, taken);
        }
    }
    std::string text = ReadableText(neighbour.asked, AmountDecimals(dispenser)) + " =";
    for (const auto& [worth, taken] : items) {
        text += " " + std::to_string(taken) + "x" + worth;
    }
    return text;
}

std::string NearestText(const MixQuestions& questions, const Surroundings& around) {
    if (!around.below && !around.above) {
        return "nearest   no amount near it is paid\n";
    }
    const auto side = [&questions](const std::optional<Answer>& neighbour, const char* none) {
        return neighbour ? NeighbourText(questions.dispenser, *neighbour) : std::string(none);
    };
    const std::string below = "nearest   " + side(around.below, "none below");
    const std::string above = side(around.above, "none above") + "\n";
    const bool fits = below.size() + above.size() + 8 <= kPlainWidth;
    return below + (fits ? "   and   " : "\n    and   ") + above;
}

std::string
OthersText(const MixQuestions& questions, const Answer& answer, const Surroundings& around) {
    const bool isPaid = answer.outcome == Outcome::Paid;
    const std::string amount = ReadableText(answer.asked, AmountDecimals(questions.dispenser));
    const std::string payers = around.payers.size() == std::size_t{kLastMix} - kFirstMix
                                   ? "all other mixes"
                               : around.payers.empty() ? (isPaid ? "no other mix" : "no mix")
                                                       : MixesText(around.payers);
    const bool isOne = around.payers.size() <= 1;
    std::vector<std::string> parts = {payers + (isOne ? " pays " : " pay ") + amount};
    if (!around.dangerous.empty()) {
        parts.push_back(MixesText(around.dangerous) +
                        (around.dangerous.size() == 1 ? " takes too much" : " take too much"));
    }
    if (!around.unanswered.empty()) {
        parts.push_back(MixesText(around.unanswered) +
                        (around.unanswered.size() == 1 ? " gives no answer" : " give no answer"));
    }
    const std::string line = Join(parts, "; ");
    const bool fits = line.size() + 10 <= kPlainWidth;
    return "others    " + (fits ? line : Join(parts, ";\n          ")) + "\n";
}

Json NeighbourJson(const std::optional<Answer>& neighbour) {
    return neighbour ? Json{{"amount", neighbour->amount}, {"values", neighbour->values}} : Json();
}

}  // namespace

std::string
AroundText(const MixQuestions& questions, const Answer& answer, const Surroundings& around) {
    return (answer.outcome == Outcome::Paid ? "" : NearestText(questions, around)) +
           OthersText(questions, answer, around);
}

Json AroundJson(const Surroundings& around) {
    Json json = {{"nearest",
                  {{"below", NeighbourJson(around.below)}, {"above", NeighbourJson(around.above)}}},
                 {"otherMixes", {{"paid", around.payers}, {"noAnswer", around.unanswered}}}};
    if (!around.dangerous.empty()) {
        json["otherMixes"]["tooMuch"] = around.dangerous;
    }
    return json;
}

}  // namespace qxmix
