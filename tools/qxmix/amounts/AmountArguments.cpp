#include "AmountArguments.h"

#include "errors/Errors.h"
#include "options/DispenserArgument.h"
#include "requests/RawIn.h"

#include <CLI/App.hpp>

namespace qxmix {

MixQuestions AmountArguments::Questions() const {
    if (!rawIn.empty()) {
        return RawQuestions();
    }
    RequireDispenser(dispenser);
    if (amount.empty()) {
        throw InputError("--amount: missing; expected what to pay");
    }
    MixQuestions questions;
    questions.dispenser = DispenserAsked(dispenser, ask);
    questions.amount = ParseAmount(amount, "--amount", questions.dispenser);
    return questions;
}

MixQuestions AmountArguments::RawQuestions() const {
    if (!amount.empty() || ask.AnyGiven()) {
        throw InputError("--raw-in: given beside options that ask something else; expected alone, "
                         "the request is asked as it stands");
    }
    const RawQuestion raw = OpenRaw(rawIn, dispenser);
    MixQuestions questions;
    questions.dispenser = raw.dispenser;
    questions.amount = raw.request.ulAmount;
    questions.requests = {raw.request};
    return questions;
}

void AddAmountArguments(CLI::App& command, AmountArguments& arguments, MixChoice choice) {
    AddDispenserArgument(command, arguments.dispenser);
    command
        .add_option("--amount", arguments.amount,
                    "what to pay, a whole number of 10^exponent units")
        ->type_name("A");
    AddRawInOption(command, arguments.rawIn);
    AddAskOptions(command, arguments.ask, choice);
}

}  // namespace qxmix
