#pragma once

#include "json/Json.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace qxmix {

/// Most bytes of a page.
constexpr std::size_t kMostPageBytes = 5000000;

/// A page with its parts filled in; every {{name}} of it must be among them.
std::string FillPage(std::string_view page, const std::map<std::string, std::string>& parts);

/// JSON text that may stand in a script element: "<" is written \u003c, so that nothing in it can
/// end the element.
std::string JsonInPage(const std::string& json);

/// The colours of the outcomes as style rules, one class "o-NAME" for each.
std::string OutcomeStyles();

/// The outcomes as pages know them: name, letter, words and badness.
Json OutcomesJson();

}  // namespace qxmix
