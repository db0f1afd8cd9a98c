#include "FillForms.h"
#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

const char* NameOf(Cheapest cheapest) {
    switch (cheapest) {
    case Cheapest::OfAll:
        return "ofAll";
    case Cheapest::IfMoreIsMore:
        return "ifMoreIsMore";
    case Cheapest::OfNeighbours:
        break;
    }
    return "ofNeighbours";
}

/// Writes what is known of each mix.
class MixWriter {
public:
    explicit MixWriter(const FillReport& report)
        : report_(report), decimals_(AmountDecimals(report.questions.dispenser)) {}

    Json Mix(const MixFill& mix) const {
        Json json = {
            {"mix", mix.mix},
            {"reached", mix.isReached},
            {"dangerous", mix.isComplete && !mix.load},
            {"complete", mix.isComplete},
            {"tried", mix.tried},
            {"cassettes", mix.load ? Cassettes(*mix.load) : Json()},
            {"money",
             {{"now", mix.now ? MoneyJson(mix.now->worth) : Json()},
              {"load", mix.load ? MoneyJson(mix.load->outcome.worth) : Json()}}},
            {"service", mix.load ? Service(mix.load->outcome) : Json()},
            {"now", mix.now ? Service(*mix.now) : Json()},
            {"checked", mix.load ? Json(mix.load->isChecked) : Json()},
            {"cheapest", mix.load && mix.isComplete ? Json(NameOf(mix.load->cheapest)) : Json()}};
        const auto cost = [](const std::optional<Money>& money) {
            return money ? Json(money->Text(2)) : Json();
        };
        json["costPerDay"] = {{"now", cost(report_.CostNow(mix))},
                              {"load", cost(report_.CostOf(mix))}};
        if (!report_.questions.notes.empty()) {
            json["choices"] = {{"all", mix.choices}, {"unpayable", mix.unpayable}};
        }
        json["curve"] = Curve(mix);
        json["held"] = mix.levels ? Held(*mix.levels) : Json();
        json["runs"] = report_.demands.size();
        json["seed"] = report_.questions.IsRecorded() ? Json() : Json(report_.questions.seed);
        return json;
    }

    Json MoneyJson(const Money& money) const { return money.Text(decimals_); }

    Json Service(const FillOutcome& outcome) const {
        return {
            {"asked", report_.questions.serviceText}, {"median", PercentText(outcome.median)},
            {"worst", PercentText(outcome.worst)},    {"promised", PercentText(outcome.promised)},
            {"reaching", outcome.reaching},           {"dangerous", outcome.dangerous}};
    }

private:
    Json Neighbour(const std::vector<std::optional<FillOutcome>>& outcomes,
                   std::size_t place) const {
        return place < outcomes.size() && outcomes[place] ? Service(*outcomes[place]) : Json();
    }

    Json Cassettes(const FillProposal& load) const {
        Json json = Json::array();
        for (std::size_t place = 0; place < report_.answers.cassettes.size(); ++place) {
            const LoadedCassette& loaded = report_.answers.cassettes[place];
            const Cassette& now = report_.questions.dispenser.cassettes[loaded.cassette];
            const Cassette& then = load.loaded.cassettes[loaded.cassette];
            const auto low = load.outcome.low[loaded.cassette];
            json.push_back(
                {{"cassette", loaded.cassette},
                 {"now", now.count},
                 {"load", then.count},
                 {"capacity", then.capacity ? Json(*then.capacity) : Json()},
                 {"bundle", loaded.bundle},
                 {"low", low ? Json(report_.demands.front()->calendar.Text(*low)) : Json()},
                 {"less", Neighbour(load.less, place)},
                 {"more", Neighbour(load.more, place)}});
            if (!report_.questions.notes.empty()) {
                json.back()["value"] = {{"now", now.value}, {"load", then.value}};
            }
        }
        return json;
    }

    Json Curve(const MixFill& mix) const {
        Json curve = Json::array();
        for (const FillPoint& point : mix.curve) {
            Json load = Json::array();
            for (std::size_t place = 0; place < point.bundles.size(); ++place) {
                load.push_back(point.bundles[place] * report_.answers.cassettes[place].bundle);
            }
            curve.push_back({{"money", MoneyJson(point.worth)},
                             {"median", PercentText(point.median)},
                             {"worst", PercentText(point.worst)},
                             {"promised", PercentText(point.promised)},
                             {"load", load}});
        }
        return curve;
    }

    Json Held(const FillLevels& levels) const {
        Json cassettes = Json::array();
        for (const LoadedCassette& loaded : report_.answers.cassettes) {
            Json held = {
                {"median", Json::array()}, {"least", Json::array()}, {"most", Json::array()}};
            for (const HeldRange& range : levels.cassettes[loaded.cassette]) {
                held["median"].push_back(range.median);
                held["least"].push_back(range.least);
                held["most"].push_back(range.most);
            }
            cassettes.push_back(held);
        }
        const std::string firstDay = report_.demands.front()->calendar.FirstDayText();
        return {{"firstDay", firstDay.empty() ? Json() : Json(firstDay)},
                {"step", levels.step},
                {"cassettes", cassettes}};
    }

    const FillReport& report_;
    unsigned decimals_;
};

/// The intervals that were compared.
Json DaysJson(const FillReport& report, const MixWriter& writer) {
    Json days = Json::array();
    for (const FillInterval& interval : report.intervals) {
        const MixFill& mix = interval.best;
        days.push_back({{"days", interval.days},
                        {"mix", mix.mix},
                        {"reached", mix.isReached},
                        {"dangerous", mix.isComplete && !mix.load},
                        {"complete", mix.isComplete},
                        {"load", mix.load ? writer.MoneyJson(mix.load->outcome.worth) : Json()},
                        {"service", mix.load ? writer.Service(mix.load->outcome) : Json()},
                        {"costPerDay", interval.cost ? Json(interval.cost->Text(2)) : Json()},
                        {"proposed", mix.load && interval.days == report.questions.Days()}});
    }
    return days;
}

}  // namespace

Json FillInputJson(const FillQuestions& questions) {
    Json json = {{"dispenser", DispenserJson(questions.dispenser)},
                 {"mixes", questions.mixes},
                 {"service", questions.serviceText},
                 {"bundle", questions.bundle},
                 {"days", questions.range
                              ? Json{{"from", questions.range->from}, {"to", questions.range->to}}
                              : Json(questions.Days())},
                 {"seed", questions.IsRecorded() ? Json() : Json(questions.seed)},
                 {"runs", questions.runs},
                 {"deadline", DurationText(questions.deadline)}};
    if (!questions.notes.empty()) {
        json["notes"] = questions.notes;
    }
    if (std::holds_alternative<RecordedDays>(questions.demand)) {
        json["resampled"] = questions.Days();
    }
    return json;
}

Json FillResultJson(const FillReport& report) {
    const MixWriter writer(report);
    Json mixes = Json::array();
    for (const MixFill& mix : report.answers.mixes) {
        mixes.push_back(writer.Mix(mix));
    }
    Json json = {{"mixes", mixes}, {"least", writer.MoneyJson(report.answers.least)}};
    if (!report.intervals.empty()) {
        json["days"] = DaysJson(report, writer);
    }
    return json;
}

}  // namespace qxmix
