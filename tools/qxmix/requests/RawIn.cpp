#include "RawIn.h"

#include "Request.h"
#include "dispenser/DispenserReader.h"
#include "errors/Errors.h"
#include "options/DispenserArgument.h"

#include <CLI/App.hpp>

namespace qxmix {

void AddRawInOption(CLI::App& command, std::string& file) {
    command
        .add_option(
            "--raw-in", file,
            "captured request of 1060 bytes, or what --raw-out wrote; a dispenser beside it "
            "lends labels and worth")
        ->type_name("FILE");
}

RawQuestion OpenRaw(const std::string& file, const std::string& known) {
    RawQuestion question{ReadRawRequest(file), {}};
    question.dispenser =
        DispenserOfRequest(question.request, known.empty() ? Dispenser{} : OpenDispenser(known));
    return question;
}

Dispenser DispenserAsked(const std::string& name, const std::string& rawIn, const AskOptions& ask) {
    if (rawIn.empty()) {
        RequireDispenser(name);
        return DispenserAsked(name, ask);
    }
    Dispenser dispenser = OpenRaw(rawIn, name).dispenser;
    if (dispenser.cassettes.empty()) {
        throw InputError("--raw-in: " + rawIn + " has no cassettes; expected one at least");
    }
    if (dispenser.MixOrDefault() < kFirstMix || dispenser.MixOrDefault() > kLastMix) {
        dispenser.mix.reset();
    }
    ask.ApplyTo(dispenser);
    return dispenser;
}

std::vector<Dispenser>
InEachCurrency(const std::string& name, const std::string& rawIn, const AskOptions& ask) {
    const Dispenser dispenser = DispenserAsked(name, rawIn, ask);
    std::vector<Dispenser> each = {dispenser};
    if (!ask.currency && rawIn.empty()) {
        for (const std::string& currency : CurrenciesOf(dispenser)) {
            if (currency != dispenser.currency) {
                each.push_back(InCurrency(dispenser, currency));
            }
        }
    }
    return each;
}

}  // namespace qxmix
