#pragma once

#include "MixAnswers.h"
#include "options/AskOptions.h"
#include "options/MixChoice.h"
#include "options/Parser.h"

#include <string>

namespace qxmix {

/// What a command about one amount is given: DISPENSER, --amount and what wins over the file.
struct AmountArguments {
    std::string dispenser;  ///< as named on the command line; empty: not given
    std::string amount;     ///< empty: not given
    AskOptions ask;

    /// The dispenser and the amount, still without requests.
    ///
    /// @throw InputError
    MixQuestions Questions() const;
};

void AddAmountArguments(CLI::App& command,
                        AmountArguments& arguments,
                        MixChoice choice = MixChoice::Several);

}  // namespace qxmix
