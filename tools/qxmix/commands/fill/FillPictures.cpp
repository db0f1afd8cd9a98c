#include "FillPictures.h"

#include "errors/Errors.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

/// Asks what is drawn of one mix after the other.
class PictureSearch {
public:
    PictureSearch(const FillReport& report, FillRuns& runs, FillProgress& progress)
        : questions_(report.questions), demands_(report.demands), runs_(runs), progress_(progress) {
    }

    /// @throw Interruption; then `fill` has no curve.
    void Run(MixFill& fill) {
        progress_.mix = fill.mix;
        progress_.best = fill.load->outcome.worth;
        progress_.expected = progress_.tried + 1 +
                             kSteps * static_cast<std::size_t>(std::count_if(
                                          fill.load->bundles.begin(), fill.load->bundles.end(),
                                          [](std::uint32_t count) { return count > 0; }));
        const FillLoading loading(fill.load->loaded, questions_.bundle, demands_);
        const Dispenser& loaded = fill.load->loaded;
        fill.levels = LevelsOf(questions_, demands_, loaded, Ask(fill.mix, loaded));
        std::vector<FillPoint> points = PointsBelow(
            fill.load->bundles,
            [&loading](const Bundles& bundles) { return loading.WorthOf(bundles); },
            [&](const Bundles& bundles) {
                return PointWith(fill.mix, bundles, loading.With(bundles));
            });
        points.insert(points.end(), fill.points.begin(), fill.points.end());
        fill.curve = BestPoints(std::move(points), fill.load->bundles);
    }

private:
    static constexpr std::size_t kSteps = 8;

    std::vector<FillRun> Ask(std::uint16_t mix, const Dispenser& loaded) {
        ++progress_.tried;
        progress_.expected = std::max(progress_.expected, progress_.tried);
        return runs_.All(mix, loaded);
    }

    std::optional<FillPoint>
    PointWith(std::uint16_t mix, const Bundles& bundles, const Dispenser& loaded) {
        const FillOutcome outcome = OutcomeOf(questions_, demands_, loaded, Ask(mix, loaded));
        return outcome.dangerous > 0 ? std::nullopt : std::make_optional(PointOf(bundles, outcome));
    }

    const FillQuestions& questions_;
    const RunDemands& demands_;
    FillRuns& runs_;
    FillProgress& progress_;
};

}  // namespace

FillReport WithPictures(FillReport report,
                        const OpenOrder& order,
                        const TraceSink& trace,
                        const std::function<void(const FillProgress&)>& progress) {
    if (!report.answers.isComplete) {
        return report;
    }
    FillProgress known;
    try {
        FillRuns runs(report.questions, report.demands, order, trace, [&] { progress(known); });
        PictureSearch search(report, runs, known);
        for (MixFill& fill : report.answers.mixes) {
            if (fill.load) {
                search.Run(fill);
            }
        }
    } catch (const Interruption&) {
        report.answers.isComplete = false;
    }
    return {std::move(report.questions), std::move(report.demands), std::move(report.answers),
            std::move(report.intervals)};
}

}  // namespace qxmix
