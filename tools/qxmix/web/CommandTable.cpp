#include "commands/explain/ExplainCommand.h"
#include "commands/lint/LintCommand.h"
#include "commands/map/MapCommand.h"
#include "commands/mix/MixCommand.h"
#include "commands/simulate/SimulateCommand.h"
#include "commands/types/TypesCommand.h"
#include "options/Command.h"

namespace qxmix {

std::vector<std::unique_ptr<Command>> AllCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<MixCommand>());
    commands.push_back(std::make_unique<ExplainCommand>());
    commands.push_back(std::make_unique<MapCommand>());
    commands.push_back(std::make_unique<LintCommand>());
    commands.push_back(std::make_unique<SimulateCommand>());
    commands.push_back(std::make_unique<TypesCommand>());
    return commands;
}

}  // namespace qxmix
