#include "ResultJson.h"

#include "json/Json.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

Json NumberOrNull(const std::optional<std::uint32_t>& number) {
    return number ? Json(*number) : Json();
}

Json UnansweredJson(const Dispenser& dispenser, const Answer& answer) {
    Json json = {{"outcome", RowOf(answer.outcome).name},
                 {"asked", answer.asked.Text(AmountDecimals(dispenser))},
                 {"paid", nullptr},
                 {"items", {{"notes", nullptr}, {"coins", nullptr}}},
                 {"values", Json(kMaxCashUnits, nullptr)},
                 {"returned", nullptr},
                 {"errorCode", nullptr},
                 {"registry", CodeJson(answer.code)},
                 {"remainder", nullptr},
                 {"amountAfter", nullptr}};
    if (answer.outcome == Outcome::NoAnswer) {
        json["proved"] = answer.isProved;
    }
    return json;
}

}  // namespace

Json ResultJson(const Dispenser& dispenser, const Answer& answer) {
    if (!answer.IsAnswered()) {
        return UnansweredJson(dispenser, answer);
    }
    const char* const outcome = RowOf(answer.outcome).name;
    const unsigned decimals = AmountDecimals(dispenser);
    return {{"outcome", outcome},
            {"asked", answer.asked.Text(decimals)},
            {"paid", answer.paid.Text(decimals)},
            {"items", {{"notes", answer.notes}, {"coins", answer.coins}}},
            {"values", answer.values},
            {"returned", answer.returned},
            {"errorCode", answer.returned == 0 ? Json() : Json(outcome)},
            {"registry", CodeJson(answer.code)},
            {"remainder", answer.remainder},
            {"amountAfter", NumberOrNull(answer.amountAfter)}};
}

Json RecordedAnswer(const Answer& answer) {
    if (!answer.IsAnswered()) {
        return {{"outcome", RowOf(answer.outcome).name}};
    }
    return {{"returned", answer.returned},
            {"values", answer.values},
            {"remainder", answer.remainder},
            {"registry", CodeJson(answer.code)}};
}

Json CountsJson(const OutcomeCounts& count) {
    Json counts = Json::object();
    for (const bool isPaid : {true, false}) {
        for (const OutcomeRow& row : OutcomeTable()) {
            const std::uint64_t times = count(row.outcome);
            if ((row.outcome == Outcome::Paid) == isPaid && times > 0) {
                counts[row.name] = times;
            }
        }
    }
    return counts;
}

Json CodeJson(const std::string& code) {
    return code.empty() ? Json() : Json(Printable(code));
}

}  // namespace qxmix
