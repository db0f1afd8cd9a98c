#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "ModuleUnderTest.h"
#include "RandomRequests.h"
#include "Records.h"

namespace property {

/// A request, as far as rules of its answer read it.
class AskedRequest {
public:
    explicit AskedRequest(const std::uint8_t* bytes) {
        std::memcpy(&record_, bytes, sizeof(record_));
    }
    explicit AskedRequest(const RandomCase& asked) : AskedRequest(asked.request.Bytes()) {}

    const MixRequest& Record() const { return record_; }
    unsigned Cassettes() const {
        return std::min<unsigned>(record_.usNumPhysicalCUs, kMaxCashUnits);
    }
    const PhysicalCashUnit& Cassette(unsigned index) const { return record_.aPhysicalCUs[index]; }

    template <class Holds>
    bool All(Holds holds) const {
        return std::all_of(record_.aPhysicalCUs, record_.aPhysicalCUs + Cassettes(), holds);
    }

    bool IsMix(std::uint16_t first, std::uint16_t last) const {
        return record_.usMixNumber >= first && record_.usMixNumber <= last;
    }
    bool IsFirstFit() const { return IsMix(4, 4) || IsMix(9, 9); }

    /// Exactly 1 allows to pay less.
    bool MayPayLess() const { return record_.bAllowPartial == 1; }

    /// Each cassette stands at its own place of the result.
    bool StandsInOrder() const {
        for (unsigned index = 0; index < Cassettes(); ++index) {
            if (Cassette(index).usPosition != index) {
                return false;
            }
        }
        return record_.usNumPhysicalCUs <= kMaxCashUnits;
    }

    bool AllAreOk() const {
        return All([](const PhysicalCashUnit& cassette) { return cassette.usStatus == 0; });
    }
    bool AllAreBills() const {
        return All([](const PhysicalCashUnit& cassette) { return cassette.usType == 3; });
    }
    bool AllAreOfItsCurrency() const {
        return All([this](const PhysicalCashUnit& cassette) { return IsOfItsCurrency(cassette); });
    }
    bool IsOfItsCurrency(const PhysicalCashUnit& cassette) const {
        return std::memcmp(&cassette.cCurrencyID, &record_.cCurrencyID, sizeof(CurrencyId)) == 0;
    }

    /// Money held by all cassettes; exact below 2^53.
    double Held() const {
        double held = 0;
        for (unsigned index = 0; index < Cassettes(); ++index) {
            held += static_cast<double>(Cassette(index).ulCount) * Cassette(index).ulValues;
        }
        return held;
    }

    /// Nothing wraps, is rescaled or is read with a sign, each cassette is told by its place, and
    /// sums of money are exact in single precision, too.
    bool IsPlain() const {
        return StandsInOrder() && record_.sExponent == 0 && Held() < kExact &&
               record_.ulAmount < kExact;
    }
    static constexpr double kExact = 1 << 24;

    /// No two cassettes share what a key says of them.
    template <class Key>
    bool AllDiffer(Key key) const {
        for (unsigned first = 0; first < Cassettes(); ++first) {
            for (unsigned second = 0; second < first; ++second) {
                if (key(Cassette(first)) == key(Cassette(second))) {
                    return false;
                }
            }
        }
        return true;
    }

private:
    MixRequest record_;
};

/// The items of an answer by position.
class PaidItems {
public:
    explicit PaidItems(const Answer& answer) {
        MixResult result;
        std::memcpy(&result, answer.result.data(), sizeof(result));
        std::copy(result.aulNotes, result.aulNotes + kMaxCashUnits, items_.begin());
    }

    std::uint32_t operator[](unsigned position) const { return items_[position]; }
    bool AreNone() const { return items_ == std::array<std::uint32_t, kMaxCashUnits>{}; }

    /// What they are worth in a request whose cassettes stand in order; exact below 2^53.
    double Worth(const AskedRequest& asked) const {
        double worth = 0;
        for (unsigned index = 0; index < asked.Cassettes(); ++index) {
            worth += static_cast<double>(items_[index]) * asked.Cassette(index).ulValues;
        }
        return worth;
    }

private:
    std::array<std::uint32_t, kMaxCashUnits> items_{};
};

}  // namespace property
