#include "BatchCommand.h"
#include "Command.h"
#include "CompareCommand.h"
#include "CompletionsCommand.h"
#include "ExplainCommand.h"
#include "LintCommand.h"
#include "MapCommand.h"
#include "MixCommand.h"
#include "RegistryCommand.h"
#include "ReplayCommand.h"
#include "SimulateCommand.h"
#include "TypesCommand.h"

namespace qxmix {

std::vector<std::unique_ptr<Command>> AllCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<MixCommand>());
    commands.push_back(std::make_unique<ExplainCommand>());
    commands.push_back(std::make_unique<MapCommand>());
    commands.push_back(std::make_unique<LintCommand>());
    commands.push_back(std::make_unique<SimulateCommand>());
    commands.push_back(std::make_unique<CompareCommand>());
    commands.push_back(std::make_unique<ReplayCommand>());
    commands.push_back(std::make_unique<BatchCommand>());
    commands.push_back(std::make_unique<TypesCommand>());
    commands.push_back(std::make_unique<RegistryCommand>());
    commands.push_back(std::make_unique<CompletionsCommand>());
    return commands;
}

}  // namespace qxmix
