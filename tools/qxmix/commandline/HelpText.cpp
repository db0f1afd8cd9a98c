#include "HelpText.h"

#include "terminal/Table.h"
#include "text/TextList.h"

#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <utility>

namespace qxmix {

namespace {

const Painter& Plain() {
    static const Painter painter(ColorMode::Never);
    return painter;
}

std::string Section(const std::string& title, const std::vector<std::string>& commandLines) {
    std::string text = title + "\n";
    for (const std::string& line : commandLines) {
        text += "  qxmix " + line + "\n";
    }
    return text;
}

/// "-q, --quiet", "--partial, --no-partial", "--limit N".
std::string OptionNames(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) {
        names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        names.push_back("--" + name);
    }
    const bool takesValue = option.get_expected_min() > 0;
    return Join(names, ", ") + (takesValue ? " " + option.get_type_name() : "");
}

/// The words of a text in lines of at most so many columns.
std::vector<std::string> Wrap(const std::string& text, std::size_t width) {
    std::vector<std::string> lines(1);
    for (const std::string& word : Split(text, ' ')) {
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width) {
            lines.emplace_back();
        }
        lines.back() += (lines.back().empty() ? "" : " ") + word;
    }
    return lines;
}

std::string OptionList(const CLI::App& parser) {
    constexpr std::size_t kHelpWidth = 52;
    Table table({{Table::Align::Left, 2, 24}, {Table::Align::Left, 2, 0}});
    for (const CLI::Option* option : parser.get_options()) {
        const bool isHidden = option->get_group().empty();
        if (!option->nonpositional() || isHidden) {
            continue;
        }
        std::string names = OptionNames(*option);
        for (const std::string& line : Wrap(option->get_description(), kHelpWidth)) {
            table.AddRow({Cell(names), Cell(line)});
            names.clear();
        }
    }
    return "options\n" + table.Text(Plain());
}

std::string ExitStatusList() {
    static const std::pair<ExitStatus, const char*> statuses[] = {
        {ExitStatus::Well, "all is well"},
        {ExitStatus::HonestNo, "refused, nothing or in part paid, differences, warnings"},
        {ExitStatus::BadInput, "bad input or usage"},
        {ExitStatus::Danger, "danger: more paid or taken than allowed, no answer, errors of lint"},
        {ExitStatus::CannotWork, "no library, a crash in it, or a file that cannot be written"},
        {ExitStatus::Interrupted, "ended with Ctrl-C"},
    };
    Table table({{Table::Align::Left, 2, 10}, {Table::Align::Left, 2, 0}});
    for (const auto& [status, meaning] : statuses) {
        table.AddRow({Cell(std::to_string(static_cast<int>(status))), Cell(meaning)});
    }
    return "exit status\n" + table.Text(Plain());
}

}  // namespace

std::string CommandHelp(const CommandInfo& info, const CLI::App& parser) {
    return info.sentence + "\n\n" + Section("usage", info.synopsis) + "\n" +
           Section("examples", info.examples) + "\n" + OptionList(parser);
}

std::string CommandList(const std::vector<std::unique_ptr<Command>>& commands) {
    Table table({{Table::Align::Left, 2, 10}, {Table::Align::Left, 2, 0}});
    for (const auto& command : commands) {
        table.AddRow({Cell(command->Info().name), Cell(command->Info().sentence)});
    }
    return "Tells what a cash dispenser will pay, asked of its mix module.\n\n"
           "usage: qxmix COMMAND ...\n" +
           table.Text(Plain()) + ExitStatusList() +
           "begin with: qxmix mix EUR:50x10,20x10 --amount 60\n"
           "qxmix COMMAND --help tells more; qxmix --version names the versions.\n";
}

}  // namespace qxmix
