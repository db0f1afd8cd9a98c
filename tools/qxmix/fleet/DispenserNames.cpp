#include "DispenserNames.h"

#include "errors/Errors.h"
#include "files/InputFile.h"
#include "options/ShellWords.h"
#include "text/TextList.h"

#include <CLI/App.hpp>
#include <algorithm>

namespace qxmix {

namespace {

bool IsList(const std::string& name) {
    return name.size() > 1 && name.front() == '@';
}

/// The names in a file, one a line; blanks around them are no part of a name.
std::vector<std::string> ReadList(const std::string& file) {
    const InputFile list = ReadInput(file);
    std::vector<std::string> names;
    for (const std::string& line : Split(list.content, '\n')) {
        const std::size_t first = line.find_first_not_of(" \t\r");
        if (first != std::string::npos) {
            const std::size_t last = line.find_last_not_of(" \t\r");
            names.push_back(line.substr(first, last + 1 - first));
        }
    }
    if (names.empty()) {
        throw InputError(list.name + ": no names; expected the name of a dispenser file a line");
    }
    return names;
}

}  // namespace

void DispenserNames::AddTo(CLI::App& command) {
    command.add_option("DISPENSER", given_,
                       "dispenser file, - or inline; or many files, and @LIST: a file of names");
}

bool DispenserNames::AreMany() const {
    return given_.size() > 1 || std::any_of(given_.begin(), given_.end(), &IsList);
}

std::vector<std::string> DispenserNames::All(const CommonOptions& options) const {
    RefuseForMany("--registry-out", !options.registryOut.empty());
    RefuseForMany("--trace", options.trace);
    std::vector<std::string> all;
    for (const std::string& name : given_) {
        const std::vector<std::string> named =
            IsList(name) ? ReadList(name.substr(1)) : std::vector<std::string>{name};
        all.insert(all.end(), named.begin(), named.end());
    }
    if (std::find(all.begin(), all.end(), "-") != all.end()) {
        throw InputError("DISPENSER: " +
                         NotAllowed("-", "files: standard input is one dispenser alone"));
    }
    return all;
}

std::string DispenserNames::Words() const {
    constexpr std::size_t kMostNames = 5;
    std::string words;
    for (std::size_t place = 0; place < std::min(given_.size(), kMostNames); ++place) {
        words += " " + ShellWord(given_[place]);
    }
    return words + (given_.size() > kMostNames ? " ..." : "");
}

void DispenserNames::RefuseForMany(const char* option, bool isGiven) const {
    if (isGiven && AreMany()) {
        throw InputError(std::string(option) + ": given for many dispensers; expected one");
    }
}

}  // namespace qxmix
