#pragma once

#include "MixAnswers.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// The answer of one mix for people: what happens to the money, from which cassettes, and what the
/// module said. Without the findings.
std::string MixText(const MixQuestions& questions, const Answer& answer, const Painter& painter);

/// The answers of several mixes side by side. Without the findings.
std::string
MixListText(const MixQuestions& questions, const MixAnswers& answers, const Painter& painter);

/// What a result code says.
std::string ReturnedText(std::int32_t returned);

/// A remainder; one that wrapped below zero is told as what it means, too.
std::string RemainderText(std::uint32_t remainder);

/// "280 EUR"
std::string AskedText(const MixQuestions& questions);

/// First line of one answer.
std::string
MixHeadline(const MixQuestions& questions, const Answer& answer, const Painter& painter);

/// First line of several answers.
std::string
MixListHeadline(const MixQuestions& questions, const MixAnswers& answers, const Painter& painter);

}  // namespace qxmix
