#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// What is asked of a search or of a whole call: the same questions for every contestant.
namespace bench {

struct Unit {
    std::uint32_t value;
    std::uint32_t count;
};

/// One request; every unit is one cassette of bank notes.
struct Question {
    std::vector<Unit> units;  ///< in the order in which a search gets them
    std::uint32_t amount;
    std::uint16_t limit;  ///< most items of one dispense
    bool allowsPartial;
};

/// Questions of one kind.
struct QuestionSet {
    std::string name;
    std::vector<Question> questions;
};

/// How well the cassettes are filled.
struct Filling {
    const char* name;
    std::uint32_t least;
    std::uint32_t most;
};

constexpr Filling kFull{"full", 500, 3000};
constexpr Filling kNearlyEmpty{"nearly empty", 5, 150};

/// Draws questions; the same ones for a seed on every platform.
class Drawer {
public:
    explicit Drawer(std::uint64_t seed) : engine_(seed) {}

    /// 0 to limit - 1.
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(engine_() % limit);
    }

    /// first to last, both included.
    std::uint32_t Between(std::uint32_t first, std::uint32_t last) {
        return first + Below(last - first + 1);
    }

    /// Units of different bank notes from 500 to 5, the largest first.
    std::vector<Unit> Units(unsigned number, const Filling& filling);

private:
    std::mt19937_64 engine_;
};

/// Three to five units; half of the amounts up to 1,000 and half up to 20,000, none above what the
/// units hold; a third is no multiple of 5 and cannot be paid; a quarter may be paid in part.
QuestionSet RealisticSet(const Filling& filling, std::uint16_t limit, unsigned number);

/// All realistic sets: full and nearly empty cassettes with the limits 40, 60 and 200.
std::vector<QuestionSet> RealisticSets(unsigned number);

/// Five full units and an amount up to 500 that ends in 0 or 5.
QuestionSet SmallAmounts(unsigned number);

}  // namespace bench
