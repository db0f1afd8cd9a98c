#include "Outcome.h"

namespace qxmix {

// The colours can be told apart with every kind of colour blindness (Okabe and Ito).
// clang-format off
const std::vector<OutcomeRow>& OutcomeTable() {
    static const std::vector<OutcomeRow> table = {
        {Outcome::NoAnswer,         "noAnswer",         'X', "no answer",                 "#000000", true,  "1;7",        ExitStatus::Danger,     12},
        {Outcome::Crashed,          "crashed",          'C', "crashed",                   "#000000", true,  "1;7",        ExitStatus::CannotWork, 11},
        {Outcome::InvalidMixNumber, "invalidMixNumber", 'i', "no such mix",               "#0072B2", true,  "38;5;25",    ExitStatus::HonestNo,   7},
        {Outcome::Failed,           "failed",           'f', "failed",                    "#0072B2", true,  "38;5;25",    ExitStatus::HonestNo,   8},
        {Outcome::NotDispensable,   "notDispensable",   'r', "refused",                   "#E69F00", false, "38;5;214",   ExitStatus::HonestNo,   4},
        {Outcome::TooManyItems,     "tooManyItems",     't', "too many items",            "#CC79A7", false, "38;5;175",   ExitStatus::HonestNo,   5},
        {Outcome::TooManyUnits,     "tooManyUnits",     'u', "too many different notes",  "#0072B2", true,  "38;5;25",    ExitStatus::HonestNo,   6},
        {Outcome::Overpaid,         "overpaid",         'O', "pays more than asked",      "#D55E00", false, "1;38;5;166", ExitStatus::Danger,     10},
        {Outcome::Overdrawn,        "overdrawn",        'D', "takes more than allowed",   "#D55E00", false, "1;38;5;166", ExitStatus::Danger,     9},
        {Outcome::Paid,             "paid",             '.', "paid",                      "#56B4E9", false, "38;5;74",    ExitStatus::Well,       1},
        {Outcome::NothingPaid,      "nothingPaid",      'n', "nothing paid",              "#BBBBBB", false, "38;5;250",   ExitStatus::HonestNo,   3},
        {Outcome::PaidInPart,       "paidInPart",       'p', "paid in part",              "#F0E442", false, "38;5;227",   ExitStatus::HonestNo,   2},
    };
    return table;
}
// clang-format on

const OutcomeRow& RowOf(Outcome outcome) {
    return OutcomeTable()[static_cast<std::size_t>(outcome)];
}

}  // namespace qxmix
