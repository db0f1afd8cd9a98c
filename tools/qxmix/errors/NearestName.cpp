#include "NearestName.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace qxmix {

namespace {

std::string LowerCase(const std::string& text) {
    std::string lower;
    std::transform(text.begin(), text.end(), std::back_inserter(lower),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return lower;
}

/// Letters to insert, delete, replace or swap with their neighbours to make one text of the other.
std::size_t EditDistance(const std::string& from, const std::string& to) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        beforeLast = std::exchange(last, row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = last[j] + (from[i] == to[j] ? 0 : 1);
            row[j + 1] = std::min({replaced, row[j] + 1, last[j + 1] + 1});
            if (i > 0 && j > 0 && from[i] == to[j - 1] && from[i - 1] == to[j]) {
                row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
            }
        }
    }
    return row.back();
}

}  // namespace

std::string NearestName(const std::string& name, const std::vector<std::string>& known) {
    constexpr std::size_t kLongestWord = 64;
    if (name.size() > kLongestWord) {
        return "";
    }
    std::string nearest;
    // One edit in three letters may be a slip; more is another word.
    std::size_t leastEdits = std::max<std::size_t>(1, name.size() / 3) + 1;
    for (const std::string& candidate : known) {
        // What is so much longer takes more edits; it may be a whole file without a separator.
        if (candidate.size() >= name.size() + leastEdits) {
            continue;
        }
        const std::size_t edits = EditDistance(LowerCase(name), LowerCase(candidate));
        if (edits < leastEdits) {
            leastEdits = edits;
            nearest = candidate;
        }
    }
    return nearest;
}

std::string DidYouMean(const std::string& name, const std::vector<std::string>& known) {
    const std::string nearest = NearestName(name, known);
    if (!nearest.empty()) {
        return "; did you mean \"" + nearest + "\"?";
    }
    std::string list;
    for (const std::string& candidate : known) {
        list += (list.empty() ? "" : ", ") + candidate;
    }
    return "; expected one of: " + list;
}

}  // namespace qxmix
