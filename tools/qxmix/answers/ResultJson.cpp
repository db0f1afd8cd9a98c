#include "ResultJson.h"

#include "json/Json.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

Json ValuesJson(const MixResult& result) {
    Json values = Json::array();
    for (const u32le items : result.aulNotes) {
        values.push_back(std::uint32_t{items});
    }
    return values;
}

Json UnansweredJson(const Dispenser& dispenser, const Judgement& judgement, const Reply& reply) {
    Json json = {{"outcome", RowOf(judgement.outcome).name},
                 {"asked", judgement.asked.Text(AmountDecimals(dispenser))},
                 {"paid", nullptr},
                 {"items", {{"notes", nullptr}, {"coins", nullptr}}},
                 {"values", Json(kMaxCashUnits, nullptr)},
                 {"returned", nullptr},
                 {"errorCode", nullptr},
                 {"registry", WrittenCodeJson(reply.calculation)},
                 {"remainder", nullptr},
                 {"amountAfter", nullptr}};
    if (judgement.outcome == Outcome::NoAnswer) {
        json["proved"] = judgement.isProved;
    }
    return json;
}

}  // namespace

Json ResultJson(const Dispenser& dispenser, const Judgement& judgement, const Reply& reply) {
    if (!judgement.IsAnswered()) {
        return UnansweredJson(dispenser, judgement, reply);
    }
    const Calculation& calculation = reply.calculation;
    const char* const outcome = RowOf(judgement.outcome).name;
    const unsigned decimals = AmountDecimals(dispenser);
    return {{"outcome", outcome},
            {"asked", judgement.asked.Text(decimals)},
            {"paid", judgement.paid.Text(decimals)},
            {"items", {{"notes", judgement.notes}, {"coins", judgement.coins}}},
            {"values", ValuesJson(calculation.result)},
            {"returned", calculation.returned},
            {"errorCode", calculation.returned == 0 ? Json() : Json(outcome)},
            {"registry", WrittenCodeJson(calculation)},
            {"remainder", std::uint32_t{calculation.request.ulRemainder}},
            {"amountAfter", std::uint32_t{calculation.request.ulAmount}}};
}

Json RecordedAnswer(const Reply& reply) {
    if (reply.ending.kind != Ending::Kind::Answered) {
        const bool isCrash = reply.ending.kind == Ending::Kind::Crashed;
        return {{"outcome", RowOf(isCrash ? Outcome::Crashed : Outcome::NoAnswer).name}};
    }
    return {{"returned", reply.calculation.returned},
            {"values", ValuesJson(reply.calculation.result)},
            {"remainder", std::uint32_t{reply.calculation.request.ulRemainder}},
            {"registry", WrittenCodeJson(reply.calculation)}};
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

Json WrittenCodeJson(const Calculation& calculation) {
    return calculation.written.empty() ? Json() : Json(Printable(calculation.written));
}

}  // namespace qxmix
