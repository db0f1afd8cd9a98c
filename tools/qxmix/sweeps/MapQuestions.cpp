#include "MapQuestions.h"

#include "errors/Errors.h"

namespace qxmix {

void CheckCellCount(const MapQuestions& questions, std::uint64_t most, const std::string& option) {
    if (questions.CellCount() <= most) {
        return;
    }
    const std::uint64_t amounts = most / questions.mixes.size();
    const std::uint64_t step = (questions.to - questions.from) / amounts + 1;
    throw InputError(option + ": " + std::to_string(questions.CellCount()) +
                     " calculations are too many; expected at most " + std::to_string(most) +
                     ", as with --step " + std::to_string(step) + " or fewer --mixes");
}

}  // namespace qxmix
