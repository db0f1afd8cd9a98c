#include "WorkerProcess.h"
#include "commandline/Tool.h"

#include <cstring>

int main(int argumentCount, char** arguments) {
    if (argumentCount == 3 && std::strcmp(arguments[1], qxmix::kWorkerArgument) == 0) {
        return qxmix::RunWorkerProcess(arguments[2]);
    }
    return qxmix::RunTool(argumentCount, arguments);
}
