#include "TableForms.h"

#include "dispenser/ReadableMoney.h"
#include "terminal/Table.h"
#include "terminal/WrappedText.h"

#include <algorithm>

namespace qxmix {

namespace {

/// More rows than anybody reads are in the other forms only.
constexpr std::size_t kMostTableRows = 40;

struct TablePart {
    TableChange change;
    const char* one;
    const char* many;
};

constexpr TablePart kTableParts[] = {
    {TableChange::NotThere, "cannot be paid as in the table", "cannot be paid as in the table"},
    {TableChange::NotPaid, "is not paid by the mix", "are not paid by the mix"},
    {TableChange::Other, "gets other notes", "get other notes"},
    {TableChange::Missing, "is missing from the table", "are missing from the table"},
    {TableChange::Same, "is the same", "are the same"},
};

std::string TableHeadline(const TableQuestions& questions,
                          const TableComparison& comparison,
                          const Painter& painter) {
    const std::string all = std::to_string(questions.asked.AmountCount()) + " amounts";
    std::vector<std::string> parts;
    for (const TablePart& part : kTableParts) {
        const std::uint64_t count = comparison.Count(part.change);
        if (count != 0) {
            parts.push_back(std::to_string(count) + (parts.empty() ? " of " + all : "") + " " +
                            (count == 1 ? part.one : part.many));
        }
    }
    if (comparison.differences.empty()) {
        parts = {"All " + all + " are the same"};
    }
    std::string text = WrappedText(parts, ", ", 0, 0) + "\n";
    if (comparison.dangers != 0) {
        text = painter.Paint("DANGER", RowOf(Outcome::Overpaid).terminalStyle) +
               "  the mix is dangerous on " + std::to_string(comparison.dangers) +
               (comparison.dangers == 1 ? " amount\n" : " amounts\n") + text;
    }
    return text;
}

std::string MixSide(const TableDifference& row) {
    return row.outcome == Outcome::Paid ? TextOf(row.mix) : RowOf(row.outcome).words;
}

}  // namespace

std::string TableText(const TableQuestions& questions,
                      const TableComparison& comparison,
                      const std::string& name,
                      const Painter& painter) {
    constexpr std::size_t kMostName = 30;
    std::string text = TableHeadline(questions, comparison, painter);
    const std::vector<TableDifference>& differences = comparison.differences;
    if (differences.empty()) {
        return text;
    }
    const Dispenser& dispenser = questions.asked.dispenser;
    Table table({{Table::Align::Right, 1, 6},
                 {Table::Align::Left, 2, 25},
                 {Table::Align::Left, 2, 20},
                 {Table::Align::Left, 2, 0}});
    table.AddRow({"amount", CutToColumns(Printable(name), kMostName),
                  "mix " + std::to_string(questions.asked.mixes.front()), ""});
    const std::size_t shown = std::min(differences.size(), kMostTableRows);
    for (std::size_t index = 0; index < shown; ++index) {
        const TableDifference& row = differences[index];
        table.AddRow({ReadableText(AskedMoney(dispenser, row.amount), AmountDecimals(dispenser)),
                      row.table.empty() ? "-" : TextOf(row.table),
                      {MixSide(row), RowOf(row.outcome).terminalStyle},
                      row.lackText});
    }
    if (table.Width() > OutputWidth()) {
        table.Narrow();
    }
    const std::size_t rest = differences.size() - shown;
    return text + "\n" + table.Text(painter) +
           (rest == 0 ? ""
                      : " and " + std::to_string(rest) + " more rows; --json has every amount\n");
}

}  // namespace qxmix
