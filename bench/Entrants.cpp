#include "Entrants.h"

#include "Calls.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <memory>

namespace bench {
namespace {

constexpr unsigned kRepetitions = 3;
constexpr unsigned kOtherRepetitions = 2;
constexpr double kShortest = 0.00005;  ///< seconds that one repetition takes at least

std::string NameOf(const std::string& what,
                   const std::string& set,
                   std::size_t index,
                   const std::string& contestant) {
    return what + "/" + set + "/" + std::to_string(index) + "/" + contestant;
}

/// Registers one contestant's benchmark for one question.
template <typename Run>
benchmark::internal::Benchmark* Register(const std::string& name, Run run) {
    return benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) mutable {
        for ([[maybe_unused]] auto turn : state) {
            benchmark::DoNotOptimize(run());
        }
    });
}

void Repeat(benchmark::internal::Benchmark* registered, unsigned repetitions) {
    registered->MinTime(kShortest)->Repetitions(static_cast<int>(repetitions));
}

void MarkGivenUp(benchmark::State& state, bool gaveUp) {
    if (gaveUp) {
        state.counters[kGaveUp] = 1;
    }
}

[[noreturn]] void Disagree(const std::string& name) {
    std::cerr << "the contestants disagree about " << name << "\n";
    std::exit(EXIT_FAILURE);
}

}  // namespace

void EnterModule(const std::string& set,
                 std::size_t index,
                 Algorithm algorithm,
                 const Question& question) {
    const auto search = std::make_shared<ModuleSearch>(algorithm, question);
    Repeat(Register(NameOf(NameOf(algorithm), set, index, "module"),
                    [search] { return search->Run(); }),
           kRepetitions);
}

void EnterDecision(const std::string& set, std::size_t index, const Question& question) {
    const auto search = std::make_shared<ModuleSearch>(Algorithm::FirstFitEmptying, question);
    Repeat(Register(NameOf("first fit never ends", set, index, "module"),
                    [search] { return search->NeverEnds(); }),
           kRepetitions);
}

void EnterReference(const std::string& set,
                    std::size_t index,
                    Algorithm algorithm,
                    const Question& question,
                    std::uint64_t stepBudget) {
    const auto search = std::make_shared<ReferenceSearch>(algorithm, question, stepBudget);
    const std::string name = NameOf(NameOf(algorithm), set, index, "reference");
    auto* const registered =
        benchmark::RegisterBenchmark(name.c_str(), [search](benchmark::State& state) {
            bool finished = true;
            for ([[maybe_unused]] auto turn : state) {
                finished = search->Run().finished;
            }
            MarkGivenUp(state, !finished);
        });
    const bool isLong = stepBudget > kStepBudget;
    Repeat(registered, isLong ? 1 : kOtherRepetitions);
}

bool Agree(const std::string& set, Algorithm algorithm, const Question& question) {
    const Answer expected = ReferenceSearch(algorithm, question, kStepBudget).Ask();
    if (!expected.finished) {
        return false;
    }
    const Answer given = ModuleSearch(algorithm, question).Ask();
    if (given.returned != expected.returned ||
        (given.returned == 0 && given.items != expected.items)) {
        Disagree(std::string(NameOf(algorithm)) + "/" + set);
    }
    return true;
}

void EnterPeers(const std::string& set, std::size_t index, const Question& question) {
    constexpr std::int32_t kNotDispensable = -306;
    const std::int32_t returned = ModuleSearch(Algorithm::MinimumNotes, question).Ask().returned;
    const auto expected =
        returned == kNotDispensable ? FewestItems::Kind::None : FewestItems::Kind::Found;
    for (const Peer& peer : Peers()) {
        if (!peer.ask) {
            continue;
        }
        const FewestItems::Kind given = peer.ask(question).kind;
        if (given != expected && given != FewestItems::Kind::GaveUp) {
            Disagree(std::string(peer.name) + "/" + set + "/" + std::to_string(index));
        }
        const std::string name = NameOf(NameOf(Algorithm::MinimumNotes), set, index, peer.name);
        auto* const registered =
            benchmark::RegisterBenchmark(name.c_str(), [peer, question](benchmark::State& state) {
                FewestItems fewest{};
                for ([[maybe_unused]] auto turn : state) {
                    fewest = peer.ask(question);
                }
                MarkGivenUp(state, fewest.kind == FewestItems::Kind::GaveUp);
            });
        Repeat(registered, given == FewestItems::Kind::GaveUp ? 1 : kOtherRepetitions);
    }
}

bool EnterCall(const std::string& set,
               std::size_t index,
               unsigned mixNumber,
               const Question& question) {
    const auto call = std::make_shared<WholeCall>(question, mixNumber);
    const std::string what = "whole call, mix " + std::to_string(mixNumber);
    const reference::Outcome outcome = call->RunReference(kStepBudget);
    if (!outcome.finished) {
        return false;
    }
    if (call->RunModule() != outcome.returned) {
        Disagree(what);
    }
    Repeat(Register(NameOf(what, set, index, "module"), [call] { return call->RunModule(); }),
           kRepetitions);
    Repeat(Register(NameOf(what, set, index, "reference"),
                    [call] { return call->RunReference(kStepBudget).returned; }),
           kOtherRepetitions);
    return true;
}

}  // namespace bench
