#include "LintCures.h"

#include "LintReport.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "options/MixList.h"
#include "terminal/Terminal.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

std::string PayersText(const LintCures& cures) {
    const std::string them = cures.count == 1 ? "it" : "them";
    if (!cures.payers.empty()) {
        return MixesText(cures.payers) + (cures.payers.size() == 1 ? " pays " : " pay ") + them;
    }
    return cures.bestPayer == 0 ? ""
                                : "mix " + std::to_string(cures.bestPayer) + " pays " +
                                      std::to_string(cures.paidByBest) + " of them";
}

/// What comes of a loading.
std::string ResultText(const LintCures& cures) {
    return cures.paidByLoading == cures.count
               ? " would do"
               : " would pay " + std::to_string(cures.paidByLoading) + " of " +
                     std::to_string(cures.count);
}

/// "bring cassette 0 into service", "load 10 EUR: 2000 in one more cassette would do"
std::string LoadingText(const Dispenser& dispenser, const LintCures& cures) {
    const Loading& loading = *cures.loading;
    const std::string label =
        loading.kind == Loading::Kind::Add
            ? ""
            : "cassette " + Printable(CassetteLabel(dispenser, loading.place));
    if (loading.kind == Loading::Kind::Service) {
        return "bring " + label + ", " + NoteText(loading.cassette) + ", into service: that" +
               ResultText(cures);
    }
    const std::string where = loading.kind == Loading::Kind::Add    ? "one more cassette"
                              : loading.kind == Loading::Kind::Fill ? label
                                                                    : label + " instead";
    return "load " + NoteText(loading.cassette) + ": " + std::to_string(loading.cassette.count) +
           " in " + where + ResultText(cures);
}

std::string RangeText(const LintCase& lint, const AmountRange& range) {
    return "offer " + AmountText(lint, range.from) + " to " + AmountText(lint, range.to) +
           " in steps of " + AmountText(lint, range.step);
}

Json LoadingJson(const LintCures& cures) {
    return {{"place", cures.loading->place},
            {"cassette", CassetteJson(cures.loading->cassette)},
            {"paid", cures.paidByLoading}};
}

}  // namespace

std::string CuresText(const LintCase& lint, const LintCures& cures) {
    std::vector<std::string> parts;
    const std::string payers = PayersText(cures);
    if (!payers.empty()) {
        parts.push_back(payers);
    }
    if (cures.loading) {
        parts.push_back(LoadingText(lint.TheDispenser(), cures));
    }
    if (cures.limit) {
        parts.push_back("a limit of " + std::to_string(*cures.limit) + " would do");
    }
    if (!cures.loading && !cures.limit && cures.amounts) {
        parts.push_back(RangeText(lint, *cures.amounts));
    }
    return Join(parts, "; or ");
}

Json CuresJson(const LintCures& cures) {
    Json json = Json::array();
    if (!cures.payers.empty()) {
        json.push_back({{"mixes", cures.payers}});
    }
    if (cures.loading) {
        json.push_back({{"loading", LoadingJson(cures)}});
    }
    if (cures.limit) {
        json.push_back({{"maxDispenseItems", *cures.limit}});
    }
    if (cures.amounts) {
        json.push_back({{"amounts",
                         {{"min", cures.amounts->from},
                          {"max", cures.amounts->to},
                          {"step", cures.amounts->step}}}});
    }
    return json;
}

}  // namespace qxmix
