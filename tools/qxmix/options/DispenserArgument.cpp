#include "DispenserArgument.h"

#include "dispenser/DispenserReader.h"
#include "errors/Errors.h"

#include <CLI/App.hpp>

namespace qxmix {

void AddDispenserArgument(CLI::App& command, std::string& name) {
    command.add_option("DISPENSER", name, "dispenser file, - or inline");
}

void RequireDispenser(const std::string& name) {
    if (name.empty()) {
        throw InputError("DISPENSER: missing; expected a file, - or a dispenser such as "
                         "EUR:50x10,20x10");
    }
}

Dispenser DispenserAsked(const std::string& name, const AskOptions& ask) {
    Dispenser dispenser = OpenDispenser(name);
    ask.ApplyTo(dispenser);
    return dispenser;
}

}  // namespace qxmix
