#include "SheetColumns.h"

#include "errors/Errors.h"
#include "errors/NearestName.h"
#include "text/TextList.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>

namespace qxmix {

namespace {

constexpr std::string_view kSeparators = ",;\t";
constexpr std::size_t kMostHeadings = 8;  // told in one line

bool IsSame(const std::string& left, const std::string& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](unsigned char one, unsigned char other) {
                          return std::tolower(one) == std::tolower(other);
                      });
}

std::string HeadingOf(const WantedColumn& column) {
    return column.heading.empty() ? column.name : column.heading;
}

/// The first row, read with one separator, and what is below it.
struct Headings {
    SheetReader below;
    std::vector<SheetCell> cells;

    std::size_t CountOf(const std::string& heading) const {
        return static_cast<std::size_t>(
            std::count_if(cells.begin(), cells.end(), [&heading](const SheetCell& cell) {
                return IsSame(cell.text, heading);
            }));
    }

    std::size_t PlaceOf(const std::string& heading) const {
        const auto at = std::find_if(cells.begin(), cells.end(), [&heading](const SheetCell& cell) {
            return IsSame(cell.text, heading);
        });
        return at == cells.end() ? SheetColumns::kNone
                                 : static_cast<std::size_t>(at - cells.begin());
    }

    std::size_t CountOf(const std::vector<WantedColumn>& wanted) const {
        return static_cast<std::size_t>(
            std::count_if(wanted.begin(), wanted.end(), [this](const WantedColumn& column) {
                return CountOf(HeadingOf(column)) > 0;
            }));
    }
};

/// The separator that a line such as "sep=;" names.
std::optional<char> NamedSeparator(std::string_view text) {
    constexpr std::string_view kBegin = "sep=";
    constexpr std::string_view kAllowed = ",;\t|";
    const bool isNamed = text.size() > kBegin.size() && text.substr(0, kBegin.size()) == kBegin &&
                         kAllowed.find(text[kBegin.size()]) != std::string_view::npos;
    return isNamed ? std::make_optional(text[kBegin.size()]) : std::nullopt;
}

Headings ReadFirstRow(SheetReader rows) {
    Headings headings{std::move(rows), {}};
    if (!headings.below.Next(headings.cells)) {
        headings.cells.clear();
    }
    return headings;
}

/// The headings, as the separator that suits them best parts them.
Headings ReadHeadings(const std::string& file,
                      std::string_view text,
                      const std::vector<WantedColumn>& wanted) {
    if (const auto named = NamedSeparator(text)) {
        return ReadFirstRow(ReadFirstRow(SheetReader(file, text, *named)).below);
    }
    std::optional<Headings> best;
    std::optional<InputError> wrong;
    for (const char separator : kSeparators) {
        try {
            Headings headings = ReadFirstRow(SheetReader(file, text, separator));
            const auto worth = [&wanted](const Headings& one) {
                return std::make_pair(one.CountOf(wanted), one.cells.size());
            };
            if (!best || worth(headings) > worth(*best)) {
                best = std::move(headings);
            }
        } catch (const InputError& error) {
            // With another separator the quotes may make sense.
            wrong = wrong.value_or(error);
        }
    }
    if (!best) {
        throw InputError(*wrong);
    }
    return *std::move(best);
}

/// Finds the columns in one row of headings.
class ColumnFinder {
public:
    ColumnFinder(const std::string& file, const Headings& headings)
        : headings_(headings),
          here_(file + ":" + std::to_string(headings.cells.front().line) + ": ") {
        for (const SheetCell& cell : headings.cells) {
            others_.push_back(cell.text);
        }
    }

    std::size_t PlaceOf(const WantedColumn& column) const {
        const std::string heading = HeadingOf(column);
        if (headings_.CountOf(heading) > 1) {
            throw InputError(here_ + "column " + heading + " given twice; expected once");
        }
        const std::size_t place = headings_.PlaceOf(heading);
        const bool isNamed = !column.heading.empty();
        if (place == SheetColumns::kNone && (column.isRequired || isNamed)) {
            const std::string nearest = NearestName(heading, others_);
            throw InputError(here_ + "no column " + heading + " in " + HeadingList(others_) +
                             "; expected " + (isNamed ? "" : "it, or ") + "--columns " +
                             column.name + "=" + (nearest.empty() ? "NAME" : nearest));
        }
        return place;
    }

    /// The headings beside those of the wanted columns.
    ///
    /// @throw InputError when one is perhaps a slip for a column that may be left out.
    std::vector<std::string> Others(const std::vector<WantedColumn>& wanted) const {
        std::vector<std::string> others;
        for (const std::string& other : others_) {
            const bool isWanted =
                std::any_of(wanted.begin(), wanted.end(), [&other](const WantedColumn& column) {
                    return IsSame(other, HeadingOf(column));
                });
            if (isWanted || other.empty()) {
                continue;
            }
            for (const WantedColumn& column : wanted) {
                // To a name of two letters too much is near.
                if (column.name.size() > 2 && headings_.CountOf(HeadingOf(column)) == 0 &&
                    !NearestName(other, {column.name}).empty()) {
                    throw InputError(here_ + "unknown column \"" + other + "\"" +
                                     DidYouMean(other, {column.name}));
                }
            }
            others.push_back(other);
        }
        return others;
    }

private:
    const Headings& headings_;
    std::string here_;
    std::vector<std::string> others_;
};

}  // namespace

std::string HeadingList(const std::vector<std::string>& headings) {
    const auto shown = static_cast<std::ptrdiff_t>(std::min(headings.size(), kMostHeadings));
    const std::size_t more = headings.size() - static_cast<std::size_t>(shown);
    return Join({headings.begin(), headings.begin() + shown}, ", ") +
           (more > 0 ? " and " + std::to_string(more) + " more" : "");
}

const SheetCell& SheetColumns::CellOf(const std::vector<SheetCell>& row, std::size_t wanted) const {
    static const SheetCell none;
    const std::size_t place = places[wanted];
    return place < row.size() ? row[place] : none;
}

void SheetColumns::CheckLength(const std::vector<SheetCell>& row, const std::string& file) const {
    std::size_t needed = 0;
    for (const std::size_t place : places) {
        needed = place == kNone ? needed : std::max(needed, place + 1);
    }
    const bool isLong = row.size() > count &&
                        std::any_of(row.begin() + static_cast<std::ptrdiff_t>(count), row.end(),
                                    [](const SheetCell& cell) { return !cell.text.empty(); });
    if (row.size() < needed || isLong) {
        throw InputError(file + ":" + std::to_string(row.front().line) + ": " +
                         std::to_string(row.size()) + " columns; expected " +
                         std::to_string(count));
    }
}

SheetColumns FindColumns(const std::string& file,
                         std::string_view text,
                         const std::vector<WantedColumn>& wanted) {
    Headings headings = ReadHeadings(file, text, wanted);
    if (headings.cells.empty()) {
        throw InputError(file + ": no row; expected one of column names");
    }
    const ColumnFinder finder(file, headings);
    std::vector<std::size_t> places;
    for (const WantedColumn& column : wanted) {
        places.push_back(finder.PlaceOf(column));
    }
    std::vector<std::string> others = finder.Others(wanted);
    const std::size_t count = headings.cells.size();
    return {std::move(headings.below), std::move(places), count, std::move(others)};
}

}  // namespace qxmix
