#pragma once

#include <algorithm>
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
    ToolError(ExitStatus exitStatus, std::string line)  // cppcheck-suppress passedByValue; changed
        : std::runtime_error(WithoutZeros(line)), exitStatus_(exitStatus) {}

    ExitStatus Status() const noexcept { return exitStatus_; }

private:
    /// A zero byte in a name of the input would end the line.
    static std::string& WithoutZeros(std::string& line) {
        std::replace(line.begin(), line.end(), '\0', '?');
        return line;
    }

    ExitStatus exitStatus_;
};

/// Bad input or usage: "PLACE: wrong; expected".
class InputError : public ToolError {
public:
    explicit InputError(const std::string& line) : ToolError(ExitStatus::BadInput, line) {}
};

/// Bad input at a field of a JSON document: "FILE: POINTER: wrong; expected".
class FieldError : public InputError {
public:
    FieldError(const std::string& file, const std::string& pointer, const std::string& wrong)
        : InputError(file + (pointer.empty() ? "" : ": " + pointer) + ": " + wrong),
          pointer_(pointer), wrong_(wrong) {}

    /// JSON pointer of the field; empty for the document itself.
    const std::string& Pointer() const noexcept { return pointer_; }

    /// What is wrong there and what is expected.
    const std::string& Wrong() const noexcept { return wrong_; }

private:
    std::string pointer_;
    std::string wrong_;
};

/// Bad input where a text is no JSON: "FILE:LINE:COLUMN: wrong".
class SyntaxError : public InputError {
public:
    SyntaxError(const std::string& file, long line, long column, const std::string& wrong)
        : InputError(file + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " +
                     wrong),
          column_(column), wrong_(wrong) {}

    long Column() const noexcept { return column_; }
    const std::string& Wrong() const noexcept { return wrong_; }

private:
    long column_;
    std::string wrong_;
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
