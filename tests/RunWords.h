#pragma once

#include <cstdlib>
#include <string>
#include <vector>

/// Runs a program with its arguments, whatever characters they hold; what it says goes to a file.
///
/// @return as std::system.
inline int RunWords(const std::vector<std::string>& words, const std::string& said) {
    std::string command;
    for (const std::string& word : words) {
        command += '\'';
        for (const char character : word) {
            command += character == '\'' ? std::string("'\\''") : std::string(1, character);
        }
        command += "' ";
    }
    // The name of a temporary file, which needs no quotes.
    command += ">" + said + " 2>&1";
    return std::system(command.c_str());
}
