#include "CassetteNames.h"

#include "terminal/Terminal.h"

#include <algorithm>

namespace qxmix {

CassetteNames::CassetteNames(const Dispenser& dispenser) : dispenser_(dispenser) {
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        longestLabel_ = std::max(longestLabel_, ColumnsOf(Label(index)));
        longestWorth_ = std::max(longestWorth_, Worth(index).size());
    }
}

std::string CassetteNames::Text(std::size_t index, std::size_t labelWidth) const {
    const std::string label = CutToColumns(Label(index), labelWidth);
    const std::string worth = Worth(index);
    return label + std::string(labelWidth - ColumnsOf(label) + 3, ' ') +
           std::string(longestWorth_ - worth.size(), ' ') + worth + " " +
           dispenser_.cassettes[index].currency;
}

std::string CassetteNames::Label(std::size_t index) const {
    return Printable(CassetteLabel(dispenser_, index));
}

std::string CassetteNames::Worth(std::size_t index) const {
    return dispenser_.cassettes[index].Worth().ShortText();
}

}  // namespace qxmix
