#include "WorstQuestions.h"

namespace bench {
namespace {

std::vector<Unit> Holding(std::uint32_t count, std::initializer_list<std::uint32_t> values) {
    std::vector<Unit> units;
    for (const std::uint32_t value : values) {
        units.push_back({value, count});
    }
    return units;
}

}  // namespace

std::vector<WorstQuestion> WorstQuestions() {
    const std::vector<Unit> four = Holding(3000, {500, 20, 10, 5});
    const std::vector<Unit> five = Holding(3000, {500, 50, 20, 10, 5});
    const std::vector<Unit> rising = Holding(3000, {5, 10, 20, 50, 500});
    return {
        {Algorithm::EqualNotes, "500 20 10 5: 20000, limit 40", {four, 20000, 40, false}},
        {Algorithm::EqualNotes, "500 50 20 10 5: 20000, limit 40", {five, 20000, 40, false}},
        {Algorithm::EqualEmptying, "500 50 20 10 5: 20000, limit 40", {five, 20000, 40, false}},
        {Algorithm::MinimumNotes, "500 50 20 10 5: 20003", {five, 20003, 40, false}},
        {Algorithm::MaximumNotes,
         "5 10 20 50 500: 100003, limit 200",
         {rising, 100003, 200, false}},
    };
}

}  // namespace bench
