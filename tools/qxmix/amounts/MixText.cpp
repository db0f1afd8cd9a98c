#include "MixText.h"

#include "ResultCodes.h"
#include "dispenser/CassetteNames.h"
#include "dispenser/ReadableMoney.h"
#include "dispenser/UnitNames.h"
#include "terminal/Table.h"

#include <algorithm>

namespace qxmix {

namespace {

using Align = Table::Align;

constexpr const char* kUnknown = "?";
constexpr const char* kNone = "-";

std::string ItemsText(std::uint64_t items) {
    return items == 0 ? kNone : std::to_string(items);
}

std::string LeavesText(std::uint32_t holds, std::uint32_t taken) {
    return std::to_string(std::int64_t{holds} - std::int64_t{taken});
}

const char* MarkText(std::uint32_t holds, std::uint32_t taken) {
    return taken > holds ? "overdrawn" : taken != 0 && taken == holds ? "emptied" : "";
}

/// "ok   emptied": the status and, in a column of its own, what the taking means for it.
std::string StatusText(const Cassette& cassette, std::size_t statusWidth, std::uint32_t taken) {
    const std::string status = StatusNames().Text(cassette.status);
    const std::string mark = MarkText(cassette.count, taken);
    return mark.empty() ? status
                        : status + std::string(statusWidth - status.size() + 3, ' ') + mark;
}

Table CassetteTable(const Dispenser& dispenser,
                    const Answer& answer,
                    const CassetteNames& names,
                    std::size_t labelWidth) {
    std::size_t statusWidth = 0;
    for (const Cassette& cassette : dispenser.cassettes) {
        statusWidth = std::max(statusWidth, StatusNames().Text(cassette.status).size());
    }
    const bool isKnown = answer.IsAnswered();
    Table table({{Align::Left, 1, 0},
                 {Align::Right, 1, 8},
                 {Align::Right, 1, 7},
                 {Align::Right, 1, 8},
                 {Align::Left, 2, 0}});
    table.AddRow({"cassette", "holds", "take", "leaves", "status"});
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        const std::uint32_t taken = answer.taken[index];
        table.AddRow({names.Text(index, labelWidth), std::to_string(cassette.count),
                      isKnown ? ItemsText(taken) : kUnknown,
                      isKnown ? LeavesText(cassette.count, taken) : kUnknown,
                      StatusText(cassette, statusWidth, taken)});
    }
    return table;
}

/// "returned 0 (success), remainder 0, no error code written"
std::string ModuleText(const Answer& answer) {
    if (answer.isProved) {
        return answer.code.empty()
                   ? "never returns, no error code left"
                   : "never returns, error code " + Printable(answer.code) + " left";
    }
    if (!answer.IsAnswered()) {
        return "returned ?, remainder ?, error code ?";
    }
    return "returned " + std::to_string(answer.returned) + " (" + ReturnedText(answer.returned) +
           "), remainder " + RemainderText(answer.remainder) + ", " +
           (answer.code.empty() ? "no error code written"
                                : "error code " + Printable(answer.code) + " written");
}

/// One cell for each answer, behind the first two of a row.
template <typename Content>
void AppendAnswers(std::vector<Cell>& row, const MixAnswers& answers, const Content& content) {
    for (const Answer& answer : answers.answers) {
        row.push_back(content(answer));
    }
}

Table MixTable(const MixQuestions& questions,
               const MixAnswers& answers,
               const CassetteNames& names,
               std::size_t labelWidth) {
    const Dispenser& dispenser = questions.dispenser;
    std::vector<Table::Column> columns(2 + answers.answers.size(), {Align::Right, 1, 5});
    columns[0] = {Align::Left, 0, 0};
    columns[1] = {Align::Right, 1, 6};
    Table table(columns);
    std::vector<Cell> heading = {" cassette", "holds"};
    AppendAnswers(heading, answers,
                  [](const Answer& answer) { return Cell(std::to_string(answer.mix)); });
    table.AddRow(heading);
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        std::vector<Cell> row = {names.Text(index, labelWidth),
                                 std::to_string(dispenser.cassettes[index].count)};
        AppendAnswers(row, answers, [index](const Answer& answer) {
            return Cell(answer.IsAnswered() ? ItemsText(answer.taken[index]) : kUnknown);
        });
        table.AddRow(row, 1);
    }
    return table;
}

void AddTotals(Table& table, const MixQuestions& questions, const MixAnswers& answers) {
    const unsigned decimals = AmountDecimals(questions.dispenser);
    std::vector<Cell> items = {" items", ""};
    AppendAnswers(items, answers, [](const Answer& answer) {
        return Cell(answer.IsAnswered() ? ItemsText(answer.Items()) : kUnknown);
    });
    std::vector<Cell> paid = {" paid", ""};
    AppendAnswers(paid, answers, [decimals](const Answer& answer) {
        const Money& money = answer.paid;
        return Cell(!answer.IsAnswered() ? kUnknown
                    : money.IsZero()     ? kNone
                                         : ReadableText(money, decimals));
    });
    std::vector<Cell> outcomes = {" outcome", ""};
    AppendAnswers(outcomes, answers, [](const Answer& answer) {
        const OutcomeRow& row = RowOf(answer.outcome);
        return Cell(std::string(1, row.letter), row.terminalStyle);
    });
    table.AddRow(items);
    table.AddRow(paid);
    table.AddRow(outcomes);
}

}  // namespace

std::string ReturnedText(std::int32_t returned) {
    switch (returned) {
    case kSuccess:
        return "success";
    case kInvalidMixNumber:
        return "invalid mix number";
    case kNotDispensable:
        return "not dispensable";
    case kTooManyItems:
        return "too many items";
    case kInvalidCashUnit:
        return "too many different notes";
    default:
        return "not a code of this module";
    }
}

std::string RemainderText(std::uint32_t remainder) {
    const std::string text = std::to_string(remainder);
    const auto asSigned = static_cast<std::int32_t>(remainder);
    return asSigned < 0 ? text + " (" + std::to_string(asSigned) + ")" : text;
}

std::string MixText(const MixQuestions& questions, const Answer& answer, const Painter& painter) {
    const Dispenser& dispenser = questions.dispenser;
    const CassetteNames names(dispenser);
    const Table table = FitLabels(OutputWidth(), names.LongestLabel(), [&](std::size_t width) {
        return CassetteTable(dispenser, answer, names, width);
    });
    return MixHeadline(questions, answer, painter) + "\n\n" + table.Text(painter) + "\n" +
           ModuleText(answer) + "\n";
}

std::string
MixListText(const MixQuestions& questions, const MixAnswers& answers, const Painter& painter) {
    const CassetteNames names(questions.dispenser);
    const Table table = FitLabels(OutputWidth(), names.LongestLabel(), [&](std::size_t width) {
        Table built = MixTable(questions, answers, names, width);
        AddTotals(built, questions, answers);
        return built;
    });
    return MixListHeadline(questions, answers, painter) + "\n\n" + table.Text(painter);
}

}  // namespace qxmix
