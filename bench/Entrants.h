#pragma once

#include "Contestants.h"

/// Enters contestants into the run: each question is a benchmark "what/set/index/contestant".
///
/// Answers are compared on the way, and a disagreement ends the program: times of wrong answers
/// mean nothing.
namespace bench {

constexpr std::uint64_t kStepBudget = 1000000;  ///< of the reference, unless it is to go on
constexpr const char* kGaveUp = "gaveUp";       ///< counter of a reference that ran out of steps

void EnterModule(const std::string& set,
                 std::size_t index,
                 Algorithm algorithm,
                 const Question& question);

/// For a question of first-fit emptying that never ends: how soon that is known.
void EnterDecision(const std::string& set, std::size_t index, const Question& question);

/// @param stepBudget  one above kStepBudget is run once only.
void EnterReference(const std::string& set,
                    std::size_t index,
                    Algorithm algorithm,
                    const Question& question,
                    std::uint64_t stepBudget);

/// Holds the module's answer to the reference's.
///
/// @return whether the reference got to an answer within kStepBudget.
bool Agree(const std::string& set, Algorithm algorithm, const Question& question);

/// The peers for minimum notes; whether an amount can be made is compared.
void EnterPeers(const std::string& set, std::size_t index, const Question& question);

/// A whole call of the module and of the reference.
///
/// @return whether the call ends within kStepBudget; it is not entered otherwise.
bool EnterCall(const std::string& set,
               std::size_t index,
               unsigned mixNumber,
               const Question& question);

}  // namespace bench
