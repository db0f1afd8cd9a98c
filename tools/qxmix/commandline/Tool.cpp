#include "Tool.h"

#include "CommandLine.h"
#include "HelpText.h"
#include "VersionAnswer.h"
#include "files/Output.h"
#include "terminal/StandardStreams.h"

#include <cstdio>

namespace qxmix {

namespace {

ExitStatus Run(CommandLine& commandLine, int argumentCount, const char* const* arguments) {
    switch (commandLine.Parse(argumentCount, arguments)) {
    case CommandLine::Request::Help:
        WriteStandardOutput(commandLine.HelpText());
        return ExitStatus::Well;
    case CommandLine::Request::CommandList:
        std::fputs(CommandList(commandLine.Commands()).c_str(), stderr);
        return ExitStatus::BadInput;
    case CommandLine::Request::Version:
        return AnswerVersion(commandLine.Options());
    case CommandLine::Request::Command:
        break;
    }
    return commandLine.Chosen().Run(commandLine.Options());
}

}  // namespace

int RunTool(int argumentCount, const char* const* arguments) {
    PrepareStandardStreams();
    ExitStatus status = ExitStatus::CannotWork;
    try {
        CommandLine commandLine;
        status = Run(commandLine, argumentCount, arguments);
    } catch (const ToolError& error) {
        Complain(error.what());
        status = error.Status();
    } catch (const std::exception& error) {
        Complain(error.what());
    }
    return static_cast<int>(status);
}

}  // namespace qxmix
