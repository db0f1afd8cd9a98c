#include "AmountArguments.h"

#include "errors/Errors.h"
#include "options/DispenserArgument.h"

#include <CLI/App.hpp>

namespace qxmix {

MixQuestions AmountArguments::Questions() const {
    RequireDispenser(dispenser);
    if (amount.empty()) {
        throw InputError("--amount: missing; expected what to pay");
    }
    MixQuestions questions;
    questions.dispenser = DispenserAsked(dispenser, ask);
    questions.amount = ParseAmount(amount, "--amount", questions.dispenser);
    return questions;
}

void AddAmountArguments(CLI::App& command, AmountArguments& arguments, MixChoice choice) {
    AddDispenserArgument(command, arguments.dispenser);
    command
        .add_option("--amount", arguments.amount,
                    "what to pay, a whole number of 10^exponent units")
        ->type_name("A");
    AddAskOptions(command, arguments.ask, choice);
}

}  // namespace qxmix
