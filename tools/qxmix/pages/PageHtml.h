#pragma once

#include "dispenser/Dispenser.h"

#include <string>
#include <utility>
#include <vector>

namespace qxmix {

/// A text as it stands in HTML; what could move letters about is taken out of it.
std::string HtmlText(const std::string& text);

/// A table with its headings; a column whose heading ends in "#" holds numbers.
///
/// @param id     of the element; empty: none.
/// @param lines  texts, as many in each as there are headings; the first names its line.
std::string HtmlTable(const std::string& id,
                      const std::string& caption,
                      const std::vector<std::string>& headings,
                      const std::vector<std::vector<std::string>>& lines);

/// Names with what they stand for.
using Facts = std::vector<std::pair<std::string, std::string>>;

/// The dispenser: its cassettes, and below them what was asked of it.
std::string
DispenserHtml(const Dispenser& dispenser, const Facts& facts, const std::string& commandLine);

}  // namespace qxmix
