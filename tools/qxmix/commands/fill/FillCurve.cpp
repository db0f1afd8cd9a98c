#include "FillCurve.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qxmix {

namespace {

constexpr std::uint32_t kParts = 16;
constexpr std::uint32_t kLeastParts = 8;

bool ServesMore(const FillPoint& left, const FillPoint& right) {
    return !right.promised.Reaches(left.promised);
}

/// Whether a point for no more money than the other stands before it.
bool StandsBefore(const FillPoint& left, const FillPoint& right) {
    const int worth = left.worth.Compare(right.worth);
    return worth != 0 ? worth < 0 : ServesMore(left, right);
}

}  // namespace

FillPoint PointOf(const Bundles& bundles, const FillOutcome& outcome) {
    return {bundles, outcome.worth, outcome.median, outcome.worst, outcome.promised};
}

std::vector<FillPoint> BestPoints(std::vector<FillPoint> points, const Bundles& proposed) {
    const auto mine =
        std::find_if(points.begin(), points.end(),
                     [&proposed](const FillPoint& point) { return point.bundles == proposed; });
    if (mine == points.end()) {
        return {};
    }
    const FillPoint kept = *mine;
    points.erase(std::remove_if(points.begin(), points.end(),
                                [&kept](const FillPoint& point) {
                                    return point.worth == kept.worth &&
                                           point.bundles != kept.bundles;
                                }),
                 points.end());
    std::stable_sort(points.begin(), points.end(), &StandsBefore);
    std::vector<FillPoint> best;
    for (FillPoint& point : points) {
        if (best.empty() || ServesMore(point, best.back())) {
            best.push_back(std::move(point));
        }
    }
    return best;
}

std::vector<FillPoint>
PointsBelow(const Bundles& proposed,
            const std::function<Money(const Bundles&)>& worth,
            const std::function<std::optional<FillPoint>(const Bundles&)>& ask) {
    const Money whole = worth(proposed);
    std::vector<FillPoint> points;
    Bundles from = proposed;
    for (std::uint32_t part = kParts - 1; part >= kLeastParts; --part) {
        const Money limit = whole.Times(part);
        std::optional<FillPoint> best;
        for (std::size_t place = 0; place < from.size(); ++place) {
            Bundles less = from;
            while (less[place] > 0 && worth(less).Times(kParts) > limit) {
                --less[place];
            }
            const std::optional<FillPoint> point = less == from ? std::nullopt : ask(less);
            if (point && (!best || ServesMore(*point, *best))) {
                best = point;
            }
            if (point) {
                points.push_back(*point);
            }
        }
        from = best ? best->bundles : from;
    }
    return points;
}

}  // namespace qxmix
