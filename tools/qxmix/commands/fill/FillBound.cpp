#include "FillSearch.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qxmix {

namespace {

/// The loadings that are cheaper than one, and worth no less than any has to be, if they are few.
class CheaperLoadings {
public:
    CheaperLoadings(const TriedLoadings& loadings, const Price& limit, std::size_t few)
        : loadings_(loadings), limit_(limit), few_(few) {
        Bundles bundles(loadings.Space().most.size(), 0);
        Collect(bundles, 0);
    }

    bool AreFew() const { return found_.size() <= few_ && visited_ <= kMostVisited; }

    /// The cheapest first.
    std::vector<Bundles> Sorted() && {
        std::stable_sort(found_.begin(), found_.end(), [](const auto& left, const auto& right) {
            return left.first < right.first;
        });
        std::vector<Bundles> sorted;
        for (auto& found : found_) {
            sorted.push_back(std::move(found.second));
        }
        return sorted;
    }

private:
    static constexpr std::size_t kMostVisited = 200000;

    // NOLINTNEXTLINE(misc-no-recursion): as deep as there are cassettes
    void Collect(Bundles& bundles, std::size_t level) {
        const FillSpace& space = loadings_.Space();
        if (level == bundles.size()) {
            found_.emplace_back(loadings_.PriceOf(bundles), bundles);
            return;
        }
        const std::size_t place = loadings_.ByPrice()[level];
        const bool isLast = level + 1 == bundles.size();
        for (std::uint32_t count = isLast ? Fewest(bundles, place) : 0;
             count <= space.most[place] && AreFew(); ++count) {
            ++visited_;
            bundles[place] = count;
            if (!(loadings_.PriceOf(bundles) < limit_)) {
                break;
            }
            Collect(bundles, level + 1);
        }
        bundles[place] = 0;
    }

    /// Of a cassette, with which the loading is worth no less than any has to be.
    std::uint32_t Fewest(Bundles bundles, std::size_t place) const {
        const FillSpace& space = loadings_.Space();
        std::uint32_t enough = space.most[place] + 1;
        for (std::uint32_t tooFew = 0; tooFew < enough;) {
            bundles[place] = tooFew + (enough - tooFew) / 2;
            if (loadings_.CanBeEnough(bundles)) {
                enough = bundles[place];
            } else {
                tooFew = bundles[place] + 1;
            }
        }
        return enough;
    }

    const TriedLoadings& loadings_;
    Price limit_;
    std::size_t few_;
    std::size_t visited_ = 0;
    std::vector<std::pair<Price, Bundles>> found_;
};

/// Goes through the loadings cassette by cassette. Of each it takes what is needed even with all
/// behind it at their most, then one more, and so on, as long as that can be cheaper than the best.
class BoundedSearch {
public:
    /// @param limit  what it has to be cheaper than.
    BoundedSearch(TriedLoadings& loadings, const Price& limit, std::size_t most)
        : loadings_(loadings), limit_(limit), most_(loadings.AskedCount() + most) {}

    /// The cheapest that was found; none: none is cheaper.
    const std::optional<Bundles>& Best() const { return best_; }

    Cheapest Run() {
        Bundles full = loadings_.Space().most;
        if (!loadings_.DoesReach(full)) {
            return Cheapest::IfMoreIsMore;
        }
        for (std::size_t place = 0; place < full.size(); ++place) {
            needed_.push_back(loadings_.FewestOf(place, full));
        }
        Search(full, 0);
        return HasTime() ? Cheapest::IfMoreIsMore : Cheapest::OfNeighbours;
    }

private:
    bool HasTime() const { return loadings_.AskedCount() < most_; }

    /// Whether a loading can be, whose cassettes from `level` on hold only what is needed.
    bool CanBeCheaper(Bundles bundles, std::size_t level) const {
        const std::vector<std::size_t>& order = loadings_.ByPrice();
        for (; level < order.size(); ++level) {
            bundles[order[level]] = needed_[order[level]];
        }
        return loadings_.PriceOf(bundles) < limit_;
    }

    /// @param bundles  as chosen so far; what is behind it holds the most.
    // NOLINTNEXTLINE(misc-no-recursion): as deep as there are cassettes
    void Search(const Bundles& bundles, std::size_t level) {
        if (level == bundles.size()) {
            if (loadings_.PriceOf(bundles) < limit_) {
                limit_ = loadings_.PriceOf(bundles);
                best_ = bundles;
            }
            return;
        }
        const std::size_t place = loadings_.ByPrice()[level];
        const std::uint32_t most = loadings_.Space().most[place];
        const std::optional<std::uint32_t> fewest = Fewest(bundles, level);
        const bool isLast = level + 1 == bundles.size();
        for (std::uint32_t count = fewest.value_or(most + 1); count <= most && HasTime(); ++count) {
            Bundles chosen = bundles;
            chosen[place] = count;
            if (!CanBeCheaper(chosen, level + 1)) {
                break;
            }
            Search(chosen, level + 1);
            if (isLast) {
                break;
            }
        }
    }

    /// What is needed of a cassette with all behind it at their most; none: too much.
    std::optional<std::uint32_t> Fewest(Bundles bundles, std::size_t level) {
        const std::size_t place = loadings_.ByPrice()[level];
        std::uint32_t affordable = needed_[place];
        for (std::uint32_t tooMany = loadings_.Space().most[place] + 1; affordable < tooMany;) {
            const std::uint32_t middle = affordable + (tooMany - affordable) / 2;
            bundles[place] = middle;
            if (CanBeCheaper(bundles, level + 1)) {
                affordable = middle + 1;
            } else {
                tooMany = middle;
            }
        }
        if (affordable == needed_[place]) {
            return std::nullopt;
        }
        bundles[place] = affordable - 1;
        if (!loadings_.DoesReach(bundles)) {
            return std::nullopt;
        }
        return loadings_.FewestOf(place, bundles, needed_[place]);
    }

    TriedLoadings& loadings_;
    Price limit_;
    std::optional<Bundles> best_;
    std::size_t most_;  // loadings tried when it gives up
    Bundles needed_;    // of each cassette with all others at their most
};

}  // namespace

CheaperLoading
FindCheaperThan(TriedLoadings& loadings, const Price& limit, const SearchEffort& effort) {
    CheaperLoadings cheaper(loadings, limit, effort.few);
    if (!cheaper.AreFew()) {
        BoundedSearch search(loadings, limit, effort.most);
        const Cheapest cheapest = search.Run();
        return {search.Best(), cheapest};
    }
    for (const Bundles& bundles : std::move(cheaper).Sorted()) {
        if (loadings.DoesReach(bundles)) {
            return {bundles, Cheapest::OfAll};
        }
    }
    return {std::nullopt, Cheapest::OfAll};
}

}  // namespace qxmix
