#include "Tool.h"

#include "CommandLine.h"
#include "HelpText.h"
#include "Output.h"
#include "VersionAnswer.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace qxmix {

namespace {

/// Keeps files of the tool from taking the place of a standard stream that the caller has closed:
/// what is written there then fails, as it should.
void HoldStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1) {
            // Opened the wrong way round on purpose, and taken by the lowest free number.
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
}

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
    HoldStandardStreams();
    std::signal(SIGPIPE, SIG_DFL);
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
