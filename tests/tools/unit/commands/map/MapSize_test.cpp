#include "commands/map/MapForms.h"

#include "dispenser/InlineDispenser.h"

#include "ErrorText.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

MapQuestions Questions(std::uint32_t to, std::vector<std::uint16_t> mixes) {
    MapQuestions questions;
    questions.dispenser = ReadInlineDispenser("EUR:1x100000");
    questions.mixes = std::move(mixes);
    questions.from = 1;
    questions.to = to;
    return questions;
}

/// The step that an error names.
std::uint32_t StepIn(const std::string& error) {
    const std::string before = "--step ";
    const std::size_t at = error.find(before);
    return at == std::string::npos
               ? 0
               : static_cast<std::uint32_t>(std::stoul(error.substr(at + before.size())));
}

std::string PageError(const MapQuestions& questions) {
    return ErrorText([&questions] { CheckFormHolds(OutputForm::Page, {questions}); });
}

TEST(MapSize, TakesAMillionCellsInAPage) {
    EXPECT_EQ(PageError(Questions(1000000, {1})), "accepted");
    EXPECT_EQ(PageError(Questions(100000, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10})), "accepted");
}

TEST(MapSize, RefusesMoreCellsAndNamesTheStepThatFits) {
    MapQuestions questions = Questions(1000001, {1});
    EXPECT_EQ(PageError(questions),
              "--output: 1000001 calculations are too many; expected at most 1000000, as with "
              "--step 2 or fewer --mixes");
    questions = Questions(4000000000U, {1, 4, 9});
    questions.step = StepIn(PageError(questions));
    EXPECT_EQ(PageError(questions), "accepted");
    --questions.step;
    EXPECT_NE(PageError(questions), "accepted") << "the least step is named";
}

TEST(MapSize, RefusesMoreCellsInAPageAlone) {
    EXPECT_EQ(ErrorText([] { CheckFormHolds(OutputForm::CsvFile, {Questions(2000000, {1})}); }),
              "accepted");
}

TEST(MapSize, SharesThePageAmongCurrencies) {
    const std::vector<MapQuestions> questions(3, Questions(400000, {1}));
    EXPECT_EQ(ErrorText([&] { CheckFormHolds(OutputForm::Page, questions); }),
              "--output: 400000 calculations are too many; expected at most 333333, as with "
              "--step 2 or fewer --mixes");
}

/// Answers that have nothing in common, so that each needs a step of its own.
MapAnswers Different(const MapQuestions& questions) {
    MapAnswers answers;
    answers.rows.resize(questions.mixes.size());
    for (MapRow& row : answers.rows) {
        std::uint32_t value = 12345;
        for (std::uint64_t place = 0; place < questions.AmountCount(); ++place) {
            MapCell cell;
            cell.outcome = Outcome::NotDispensable;
            for (std::uint32_t& item : cell.values) {
                value = value * 1664525U + 1013904223U;
                item = value;
            }
            row.Add(cell);
        }
    }
    return answers;
}

std::string PageOf(const MapQuestions& questions) {
    MapReports reports;
    reports.maps.emplace_back(questions, Different(questions), std::vector<Finding>());
    Envelope envelope;
    envelope.result = MapResultJson(reports);
    return MapPage(reports, envelope, "qxmix map");
}

TEST(MapSize, RefusesAPageOfMoreThanFiveMegabytesAndNamesTheStepThatFits) {
    MapQuestions questions = Questions(80000, {1});
    const std::string error = ErrorText([&questions] { PageOf(questions); });
    EXPECT_NE(error.find(" bytes is too large; expected at most 5000000, as with --step "),
              std::string::npos)
        << error;
    EXPECT_NE(error.find(" or fewer --mixes"), std::string::npos) << error;
    questions.step = StepIn(error);
    ASSERT_GT(questions.step, 1U) << error;
    const std::string page = PageOf(questions);
    EXPECT_LE(page.size(), 5000000U);
    EXPECT_NE(page.find("</html>"), std::string::npos);
}

}  // namespace
}  // namespace qxmix
