#include "Command.h"
#include "MixCommand.h"
#include "TypesCommand.h"

namespace qxmix {

std::vector<std::unique_ptr<Command>> AllCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<MixCommand>());
    commands.push_back(std::make_unique<TypesCommand>());
    return commands;
}

}  // namespace qxmix
