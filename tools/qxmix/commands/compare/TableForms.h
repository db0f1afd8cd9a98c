#pragma once

#include "TableComparison.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// On which amounts a table differs from the mix, for people.
///
/// @param name  of the table, as a heading.
std::string TableText(const TableQuestions& questions,
                      const TableComparison& comparison,
                      const std::string& name,
                      const Painter& painter);

/// The differences as CSV: what differs and why, then the table's number of each note and the
/// mix's.
std::string TableCsv(const TableComparison& comparison);

/// What was compared, defaults filled in.
Json TableInputJson(const TableQuestions& questions);

/// The result of the comparison.
Json TableResultJson(const TableComparison& comparison);

}  // namespace qxmix
