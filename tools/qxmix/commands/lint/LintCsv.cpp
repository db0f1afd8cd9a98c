#include "LintElements.h"
#include "LintFleetForms.h"
#include "sheets/CsvCell.h"

namespace qxmix {

namespace {

std::string LineOf(const LintElement& element) {
    const Json& mix = element.finding.contains("mix") ? element.finding["mix"] : Json();
    std::string line = CsvCell(element.row.file) + "," + element.Text("id") + "," +
                       (element.isError ? "notAsked" : element.Severity()) + "," +
                       (mix.is_null() ? "" : mix.dump()) + "," + CsvCell(element.Text("pointer"));
    line += element.place ? "," + std::to_string(element.place->line) + "," +
                                std::to_string(element.place->column)
                          : ",,";
    for (const char* const field : {"message", "advice", "accepted"}) {
        line += "," + CsvCell(element.Text(field));
    }
    return line + "\n";
}

}  // namespace

void WriteLintCsv(const LintFleet& fleet, const TakePart& take) {
    take("file,id,severity,mix,pointer,line,column,message,advice,accepted\n");
    for (const LintFleetRow& row : fleet.rows) {
        for (const LintElement& element : ElementsOf(fleet, row)) {
            take(LineOf(element));
        }
    }
}

}  // namespace qxmix
