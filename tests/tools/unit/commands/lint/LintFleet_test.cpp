#include "commands/lint/LintFleet.h"

#include "LintOf.h"
#include "TemporaryFolder.h"
#include "errors/Errors.h"
#include "json/Json.h"

#include <fstream>

namespace qxmix {
namespace {

LintFinding Graded(Severity severity, const std::string& id, const std::string& message) {
    LintFinding finding;
    finding.id = id;
    finding.severity = severity;
    finding.message = message;
    finding.pointer = "/mix";
    return finding;
}

LintFleetReport Report(const std::vector<LintFinding>& findings, bool isQuiet = false) {
    return ReportOf("a.json", {LintOf("EUR:50x9").Case()}, findings, ExitStatus::Danger, isQuiet);
}

TEST(LintFleetRow, TellsTheGravestFirst) {
    const LintFinding note = Graded(Severity::Note, "QX1", "note");
    const LintFinding warning = Graded(Severity::Warning, "QX2", "warning");
    const LintFinding error = Graded(Severity::Error, "QX3", "error");
    const LintFinding other = Graded(Severity::Error, "QX4", "other");
    EXPECT_EQ(Report({}).row.first, "");
    EXPECT_EQ(Report({note}).row.first, "QX1 note");
    EXPECT_EQ(Report({note, warning}).row.first, "QX2 warning");
    EXPECT_EQ(Report({note, error, warning, other}).row.first, "QX3 error");
    EXPECT_EQ(Report({note}, true).row.first, "") << "quiet";
}

TEST(LintFleetRow, CountsWhatPeopleAreToldOf) {
    LintFinding accepted = Graded(Severity::Error, "QX4", "accepted");
    accepted.accepted = "why";
    const LintFinding note = Graded(Severity::Note, "QX1", "note");
    const LintFinding warning = Graded(Severity::Warning, "QX2", "warning");
    const LintFinding error = Graded(Severity::Error, "QX3", "error");
    const LintFleetRow row = Report({note, warning, error, accepted}).row;
    EXPECT_EQ(row.file, "a.json");
    EXPECT_EQ(row.status, ExitStatus::Danger);
    EXPECT_TRUE(row.isAsked);
    EXPECT_EQ(row.Told(Severity::Note), 1U);
    EXPECT_EQ(row.Told(Severity::Warning), 1U);
    EXPECT_EQ(row.Told(Severity::Error), 1U);
    EXPECT_EQ(row.accepted, 1U);
    const LintFleetRow quiet = Report({note, warning}, true).row;
    EXPECT_EQ(quiet.Told(Severity::Note), 0U);
    EXPECT_EQ(quiet.Told(Severity::Warning), 1U);
    EXPECT_EQ(quiet.accepted, 0U);
}

TEST(LintFleetRow, TellsOfACrashBeforeAllElse) {
    LintCase lint = LintOf("EUR:50x9").Case();
    MapCell cell;
    cell.outcome = Outcome::Crashed;
    lint.mixes.front().row = MapRow();
    lint.mixes.front().row.Add(cell);
    const LintFleetReport report = ReportOf(
        "a.json", {lint}, {Graded(Severity::Error, "QX3", "error")}, ExitStatus::CannotWork, false);
    EXPECT_EQ(report.row.first, "mix 1 crashes on 1 amount");
}

TEST(LintFleetRow, OfOneThatCannotBeReadHasTheError) {
    const LintFleetReport report =
        ReportOf("a.json", FieldError("a.json", "/mix", "7 is not allowed"));
    EXPECT_FALSE(report.row.isAsked);
    EXPECT_EQ(report.row.status, ExitStatus::BadInput);
    EXPECT_EQ(report.row.first, "/mix: 7 is not allowed");
    EXPECT_EQ(report.text, "/mix: 7 is not allowed\n");
    const Json element = Json::parse(report.json);
    EXPECT_EQ(element["file"], "a.json");
    EXPECT_EQ(element["error"]["pointer"], "/mix");
}

TEST(LintFleetRow, IsTheSameBehindAWorker) {
    LintFleetReport report = Report({Graded(Severity::Error, "QX3", "error")});
    report.row.accepted = 7;
    report.text = "text";
    report.places = "[[1,2]]";
    const LintFleetReport again = ReadReport("b.json", ToBytes(report));
    EXPECT_EQ(again.row.file, "b.json");
    EXPECT_EQ(again.row.status, report.row.status);
    EXPECT_EQ(again.row.isAsked, report.row.isAsked);
    EXPECT_EQ(again.row.told, report.row.told);
    EXPECT_EQ(again.row.accepted, 7U);
    EXPECT_EQ(again.row.first, report.row.first);
    EXPECT_EQ(again.json, report.json);
    EXPECT_EQ(again.text, report.text);
    EXPECT_EQ(again.places, report.places);
}

TEST(LintFleetRow, KnowsWhereInItsFileAFindingIs) {
    const TemporaryFolder folder;
    const std::string name = folder.Name("a.json");
    std::ofstream(name) << "{\n  \"mix\": 4,\n  \"partial\": true\n}\n";
    const auto places = [](LintFleetReport report, const std::string& file) {
        report.row.file = file;
        AddPlaces(report);
        return report.places;
    };
    LintFinding whole = Graded(Severity::Note, "QX1", "note");
    whole.pointer.clear();
    LintFinding partial = Graded(Severity::Note, "QX2", "note");
    partial.pointer = "/partial";
    const LintFleetReport report =
        Report({Graded(Severity::Error, "QX3", "error"), whole, partial});
    EXPECT_EQ(places(report, name), "[[2,10],[1,1],[3,14]]");
    for (const char* const file : {"-", "EUR:50x9", "nowhere.json"}) {
        EXPECT_EQ(places(report, file), "") << file;
    }
    EXPECT_EQ(places(ReportOf(name, FieldError(name, "/mix", "wrong")), name), "[[2,10]]");
}

TEST(LintFleet, CountsEachDispenserOnceByItsGravest) {
    LintFleet fleet;
    const auto keep = [&fleet](std::vector<Severity> severities) {
        std::vector<LintFinding> findings;
        for (const Severity severity : severities) {
            findings.push_back(Graded(severity, "QX1", "found"));
        }
        fleet.Keep(Report(findings));
    };
    keep({});
    keep({Severity::Note});
    keep({Severity::Note, Severity::Warning});
    keep({Severity::Warning});
    keep({Severity::Warning, Severity::Error, Severity::Note});
    keep({Severity::Error});
    keep({Severity::Error, Severity::Note});
    LintFleetReport accepting = Report({});
    accepting.row.accepted = 3;
    fleet.Keep(accepting);
    fleet.Keep(accepting);
    fleet.Keep(ReportOf("a.json", InputError("a.json: cannot be opened")));
    const LintFleetTotals totals = TotalsOf(fleet);
    EXPECT_EQ(totals.clean, 3U);
    EXPECT_EQ(totals.withNotes, 1U);
    EXPECT_EQ(totals.withWarnings, 2U);
    EXPECT_EQ(totals.withErrors, 3U);
    EXPECT_EQ(totals.notAsked, 1U);
    EXPECT_EQ(totals.accepted, 6U);
    EXPECT_EQ(fleet.named, 10U);
    EXPECT_EQ(fleet.spool.Read(fleet.rows.back().text), "cannot be opened\n");
}

}  // namespace
}  // namespace qxmix
