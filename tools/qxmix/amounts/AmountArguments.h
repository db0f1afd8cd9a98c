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
    std::string rawIn;      ///< --raw-in; empty: not given
    AskOptions ask;

    /// The dispenser and the amount; of a captured request that too, else without requests.
    ///
    /// @throw InputError
    MixQuestions Questions() const;

private:
    MixQuestions RawQuestions() const;
};

void AddAmountArguments(CLI::App& command,
                        AmountArguments& arguments,
                        MixChoice choice = MixChoice::Several);

}  // namespace qxmix
