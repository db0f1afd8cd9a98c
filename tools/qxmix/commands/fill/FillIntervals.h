#pragma once

#include "FillReport.h"

#include <functional>

namespace qxmix {

/// Finds the cheapest loading of an interval between refills.
using IntervalFill = std::function<FillAnswers(const FillQuestions&, const RunDemands&)>;

/// Answers for each number of days that is asked, each as if nothing else was asked, and reports
/// the interval that costs least in a day; the shorter one of equals. Where none reaches the
/// service, it is the shortest with a loading.
///
/// @param questions  with drawn withdrawals, if there is a range of days.
FillReport FillIntervals(FillQuestions questions, const IntervalFill& fill);

}  // namespace qxmix
