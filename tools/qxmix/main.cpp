#include "commandline/Tool.h"

int main(int argumentCount, char** arguments) {
    return qxmix::RunTool(argumentCount, arguments);
}
