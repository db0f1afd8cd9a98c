#pragma once

#include <cstdint>
#include <string>

namespace reference {

/// Thrown by the step that exceeds the budget; the entry operations catch it.
struct BudgetExceeded {};

/// Thrown by a search that has come back to where it was and goes round for ever.
struct NeverEnds {};

/// What one call leaves behind besides its results: the steps it took and the code recorded last.
class Journal {
public:
    explicit Journal(std::uint64_t stepBudget) : budget_(stepBudget) {}

    /// Counts one turn of a loop.
    void Step() {
        if (steps_ == budget_) {
            throw BudgetExceeded{};
        }
        ++steps_;
    }

    /// Records a code over the one before it, as the single registry value does.
    void Record(const char* code) { lastCode_ = code; }

    std::uint64_t Steps() const { return steps_; }
    std::string LastCode() const { return lastCode_; }

private:
    std::uint64_t budget_;
    std::uint64_t steps_ = 0;
    const char* lastCode_ = "";
};

}  // namespace reference
