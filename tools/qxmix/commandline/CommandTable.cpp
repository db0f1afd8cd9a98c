#include "commands/batch/BatchCommand.h"
#include "commands/compare/CompareCommand.h"
#include "commands/completions/CompletionsCommand.h"
#include "commands/explain/ExplainCommand.h"
#include "commands/fill/FillCommand.h"
#include "commands/lint/LintCommand.h"
#include "commands/map/MapCommand.h"
#include "commands/mix/MixCommand.h"
#include "commands/registry/RegistryCommand.h"
#include "commands/replay/ReplayCommand.h"
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
    commands.push_back(std::make_unique<FillCommand>());
    commands.push_back(std::make_unique<CompareCommand>());
    commands.push_back(std::make_unique<ReplayCommand>());
    commands.push_back(std::make_unique<BatchCommand>());
    commands.push_back(std::make_unique<TypesCommand>());
    commands.push_back(std::make_unique<RegistryCommand>());
    commands.push_back(std::make_unique<CompletionsCommand>());
    return commands;
}

}  // namespace qxmix
