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
    const std::vector<Unit> wide = {{500, 1528}, {200, 2860}, {100, 2289}, {50, 2170}, {20, 1353}};
    const std::vector<Unit> few = {{100, 30}, {50, 66}, {20, 132}, {10, 54}, {5, 80}};
    const std::vector<Unit> fewer = {{500, 44}, {200, 42}, {100, 102}, {50, 112}, {20, 87}};
    return {
        {Algorithm::EqualNotes, "500 20 10 5: 20000, limit 40", {four, 20000, 40, false}},
        {Algorithm::EqualNotes, "500 50 20 10 5: 20000, limit 40", {five, 20000, 40, false}},
        {Algorithm::EqualEmptying, "500 50 20 10 5: 20000, limit 40", {five, 20000, 40, false}},
        {Algorithm::MinimumNotes, "500 50 20 10 5: 20003", {five, 20003, 40, false}},
        {Algorithm::MaximumNotes,
         "5 10 20 50 500: 100003, limit 200",
         {rising, 100003, 200, false}},
        {Algorithm::EqualNotes, "full: 11127 in part, limit 40", {wide, 11127, 40, true}},
        {Algorithm::EqualNotes, "full: 13182 in part, limit 60", {wide, 13182, 60, true}},
        {Algorithm::EqualEmptying, "nearly empty: 1825, limit 60", {few, 1825, 60, false}},
        {Algorithm::EqualEmptying,
         "nearly empty: 16375 in part, limit 200",
         {fewer, 16375, 200, true}},
    };
}

}  // namespace bench
