#pragma once

#include "answers/Envelope.h"
#include "answers/Outcome.h"
#include "json/Json.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// Most bytes of a page.
constexpr std::size_t kMostPageBytes = 5000000;

/// What one page has and another has not. HTML has the texts of others as HtmlText makes them.
struct PageParts {
    std::string title;          ///< as text
    std::string heading;        ///< HTML of the verdict
    std::string withoutScript;  ///< what a reader whose browser runs no scripts is told, and
    std::string summary;        ///< the table that he sees then
    std::string main;           ///< HTML that the scripts fill, hidden where none run, and in it
    std::string dispenser;      ///< what stands for {{dispenser}}
    std::string style;
    std::string script;
    Json page;  ///< what the scripts know beside the answer

    /// What would make a page small enough, by the size that it has.
    std::function<std::string(std::size_t size)> fitting;
};

/// One HTML file that needs nothing else.
///
/// @param envelope  the page holds it, in its texts what may be shown.
/// @throw InputError when the page would be too large.
std::string PageText(const PageParts& parts, const Envelope& envelope);

/// How people call an outcome.
using OutcomeWords = std::function<const char*(const OutcomeRow& row)>;

/// As everywhere.
inline const char* WordsOf(const OutcomeRow& row) {
    return row.words;
}

/// How often each outcome occurred as a table, a line for each mix.
///
/// @param count  of an outcome of the mix at this place.
std::string
OutcomeCountTable(const std::string& caption,
                  const std::vector<std::uint16_t>& mixes,
                  const std::function<std::uint64_t(std::size_t place, Outcome outcome)>& count,
                  const OutcomeWords& words);

/// The outcomes as pages know them: name, letter, words and badness.
Json OutcomesJson(const OutcomeWords& words);

}  // namespace qxmix
