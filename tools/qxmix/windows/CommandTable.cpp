#include "commands/mix/MixCommand.h"
#include "commands/types/TypesCommand.h"
#include "options/Command.h"

namespace qxmix {

std::vector<std::unique_ptr<Command>> AllCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<MixCommand>());
    commands.push_back(std::make_unique<TypesCommand>());
    return commands;
}

}  // namespace qxmix
