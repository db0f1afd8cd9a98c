#pragma once

#include <stdexcept>
#include <string>

namespace qxmix {

/// What the tool ends with; part of its promise to scripts.
enum class ExitStatus : int {
    Well = 0,           ///< all is well
    HonestNo = 1,       ///< refused, nothing or in part paid, differences, warnings
    BadInput = 2,       ///< bad input or usage
    Danger = 3,         ///< an answer that must not reach a customer, or an error of lint
    CannotWork = 4,     ///< library missing, module crashed, file not writable
    Interrupted = 130,  ///< ended with Ctrl-C
};

/// Ends the run with one line on standard error; the text has neither the tool's name nor a line
/// end.
class ToolError : public std::runtime_error {
public:
    ToolError(ExitStatus exitStatus, const std::string& line)
        : std::runtime_error(line), exitStatus_(exitStatus) {}

    ExitStatus Status() const noexcept { return exitStatus_; }

private:
    ExitStatus exitStatus_;
};

/// Bad input or usage: "PLACE: wrong; expected".
class InputError : public ToolError {
public:
    explicit InputError(const std::string& line) : ToolError(ExitStatus::BadInput, line) {}
};

/// The tool could not work: "THING: what failed".
class WorkError : public ToolError {
public:
    explicit WorkError(const std::string& line) : ToolError(ExitStatus::CannotWork, line) {}
};

/// Ctrl-C while the tool waited for an answer; commands that hold answers already catch it.
class Interruption : public ToolError {
public:
    Interruption() : ToolError(ExitStatus::Interrupted, "interrupted") {}
};

/// The text of a value that a person wrote and the tool refuses; `expected` completes "expected".
inline std::string NotAllowed(const std::string& value, const std::string& expected) {
    return value + " is not allowed; expected " + expected;
}

}  // namespace qxmix
