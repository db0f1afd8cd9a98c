#include "LintFleetRow.h"

#include "LintForms.h"
#include "dispenser/InlineDispenser.h"
#include "files/InputFile.h"
#include "fleet/FleetText.h"
#include "json/Json.h"
#include "json/JsonPlaces.h"
#include "workers/Bytes.h"

#include <algorithm>

namespace qxmix {

namespace {

/// The gravest of them; of several the first.
std::string FirstLine(const std::vector<LintFinding>& told) {
    const auto gravest =
        std::max_element(told.begin(), told.end(), [](const Finding& one, const Finding& other) {
            return one.severity < other.severity;
        });
    return gravest == told.end() ? "" : gravest->id + " " + gravest->message;
}

}  // namespace

LintFleetReport ReportOf(const std::string& file,
                         const LintCases& cases,
                         const std::vector<LintFinding>& findings,
                         ExitStatus status,
                         bool isQuiet) {
    LintFleetReport report;
    report.row.file = file;
    report.row.status = status;
    report.row.isAsked = true;
    const std::vector<LintFinding> told = ToldFindings(findings, isQuiet, false);
    for (const Finding& finding : told) {
        ++report.row.told[static_cast<std::size_t>(finding.severity)];
    }
    report.row.accepted = static_cast<std::uint32_t>(ToldFindings(findings, isQuiet, true).size());
    const std::vector<std::string> crashes = CrashLines(cases);
    report.row.first = crashes.empty() ? FirstLine(told) : crashes.front();
    Json json = FleetElement(file, status);
    json.update(LintResultJson(findings));
    report.json = ElementText(json);
    return report;
}

LintFleetReport ReportOf(const std::string& file, const ToolError& error) {
    LintFleetReport report;
    report.row.file = file;
    report.row.status = error.Status();
    report.row.first = WithoutFile(error.what(), file);
    report.text = Printable(report.row.first) + "\n";
    report.json = ElementText(FleetElement(file, error));
    return report;
}

void AddPlaces(LintFleetReport& report) {
    const std::string& file = report.row.file;
    if (file == "-" || IsInlineDispenser(file)) {
        return;
    }
    std::string text;
    try {
        text = ReadInput(file).content;
    } catch (const InputError&) {
        return;
    }
    const Json element = Json::parse(report.json);
    const bool isError = element.contains("error");
    const Json one = isError ? Json::array({element.at("error")}) : Json();
    Json places = Json::array();
    for (const Json& finding : isError ? one : element.at("findings")) {
        const Json& pointer = finding.at("pointer");
        const bool isBroken = isError && pointer.is_null();
        const TextPlace place =
            isBroken ? TextPlace()
                     : PlaceOf(text, pointer.is_null() ? "" : pointer.get<std::string>());
        places.push_back({place.line, place.column});
    }
    report.places = places.dump();
}

std::string ToBytes(const LintFleetReport& report) {
    ByteWriter writer;
    writer.Put(report.row.status).Put(report.row.isAsked).Put(report.row.told);
    writer.Put(report.row.accepted).PutText(report.row.first);
    return writer.PutText(report.json).PutText(report.text).PutText(report.places).Bytes();
}

LintFleetReport ReadReport(const std::string& file, const std::string& bytes) {
    ByteReader reader(bytes);
    LintFleetReport report;
    report.row.file = file;
    report.row.status = reader.Take<ExitStatus>();
    report.row.isAsked = reader.Take<bool>();
    report.row.told = reader.Take<decltype(report.row.told)>();
    report.row.accepted = reader.Take<std::uint32_t>();
    report.row.first = reader.TakeText();
    report.json = reader.TakeText();
    report.text = reader.TakeText();
    report.places = reader.TakeText();
    return report;
}

}  // namespace qxmix
