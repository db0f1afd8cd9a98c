#include "OutputFileOption.h"

#include "errors/Errors.h"

#include <CLI/App.hpp>

namespace qxmix {

void AddOutputFileOption(CLI::App& command,
                         const std::string& name,
                         std::string& file,
                         const std::string& help) {
    const auto store = [name, &file](const std::string& text) {
        if (text == "-") {
            throw InputError(name + ": " +
                             NotAllowed(text, "a file: standard output has the answer"));
        }
        file = text;
    };
    command.add_option_function<std::string>(name, store, help)->type_name("FILE");
}

}  // namespace qxmix
