#pragma once

#include "PageHtml.h"
#include "answers/Envelope.h"
#include "answers/Outcome.h"
#include "json/Json.h"

#include <map>
#include <string>
#include <vector>

namespace qxmix {

/// How dispensers of a fleet are told apart at a glance.
struct FleetPageKind {
    const char* words;
    char letter;
    Outcome colour;  ///< that of this outcome
};

/// A dispenser: its kind, and texts as many as there are columns; below it lines of texts.
struct FleetPageRow {
    std::size_t kind = 0;
    std::vector<std::string> cells;
    std::vector<std::vector<std::string>> details;
};

/// The page of a fleet: a table that can be sorted and searched, and that opens each dispenser.
/// Texts are kept once, since those of a fleet are much the same.
class FleetPage {
public:
    std::string title;
    std::string verdict;               ///< as text, in lines; the first one is the verdict
    std::vector<std::string> columns;  ///< "#" at the end: of numbers
    std::vector<FleetPageKind> kinds;
    std::string caption;                     ///< of what is known of a dispenser
    std::vector<std::string> detailColumns;  ///< likewise
    std::string nothing;                     ///< what is said where nothing is known

    void Add(const FleetPageRow& row);

    /// @param envelope     without the dispensers in its result: the rows have them.
    /// @param facts        what was asked.
    /// @throw InputError when it would be too large.
    std::string
    Text(const Envelope& envelope, const Facts& facts, const std::string& commandLine) const;

private:
    Json Packed(const std::vector<std::string>& texts);

    std::map<std::string, std::size_t> places_;  // of the texts
    Json texts_ = Json::array();
    Json rows_ = Json::array();
    std::vector<std::vector<std::string>> first_;  // rows for readers without scripts
};

}  // namespace qxmix
