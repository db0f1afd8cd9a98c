#pragma once

#include "options/CommonOptions.h"
#include "options/Parser.h"

#include <string>
#include <vector>

namespace qxmix {

/// The dispensers of a command that takes one or many, as they were named on the command line.
class DispenserNames {
public:
    void AddTo(CLI::App& command);

    /// Whether many are meant: more than one name, or @LIST.
    bool AreMany() const;

    /// The one that was named; empty: none.
    std::string One() const { return given_.empty() ? "" : given_.front(); }

    /// All of them, in their order: each @LIST stands for the names in that file, one a line.
    ///
    /// @throw InputError when a list cannot be read or has no name, for standard input, which is no
    ///   dispenser among many, and for options that are about one.
    std::vector<std::string> All(const CommonOptions& options) const;

    /// As a shell takes them; of many the first ones.
    std::string Words() const;

    /// @param option  that only one dispenser can have.
    /// @param isGiven  whether it was given.
    /// @throw InputError when it was, and many are meant.
    void RefuseForMany(const char* option, bool isGiven) const;

private:
    std::vector<std::string> given_;
};

}  // namespace qxmix
