#pragma once

#include "SearchUnits.h"
#include "Terminal.h"

#include "CMixAlgorithm.h"

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

/// What one search left behind.
struct Found {
    std::int32_t returned = 0;
    std::vector<std::uint32_t> notes;  ///< all six entries
    std::string code;

    friend bool operator==(const Found& first, const Found& second) {
        return first.returned == second.returned && first.notes == second.notes &&
               first.code == second.code;
    }
    friend std::ostream& operator<<(std::ostream& out, const Found& found) {
        out << found.returned << ", notes";
        for (const std::uint32_t count : found.notes) {
            out << ' ' << count;
        }
        return out << ", code \"" << found.code << '"';
    }
};

/// What stands in the notes that a search does not write.
constexpr std::uint32_t kUnwritten = 0xCCCCCCCC;

/// Notes for the units of the table and nothing written behind them.
inline Found Chosen(std::vector<std::uint32_t> notes, const char* code = "") {
    notes.resize(kMaxCashUnits, kUnwritten);
    return {0, std::move(notes), code};
}

/// A failure: nothing is written but the combination that the last check refused, if there is one.
inline Found
Failed(std::int32_t result, const char* code, std::vector<std::uint32_t> refused = {}) {
    refused.resize(kMaxCashUnits, kUnwritten);
    return {result, std::move(refused), code};
}

/// An ordered table with the request that it is searched for, to call a search or the limit check
/// directly. Bytes that a search has no business with are filled with rubbish.
class Table {
public:
    Table() {
        std::memset(&request, 0xEE, sizeof(request));
        std::memset(&table, 0xEE, sizeof(table));
        table.usCount = std::uint16_t{0};
        Limit(40).Partial(0).Amount(0);
    }

    Table& Bill(std::uint32_t value, std::uint32_t count) { return Unit(3, value, count); }
    Table& Coin(std::uint32_t value, std::uint32_t count) { return Unit(4, value, count); }
    Table& Unit(unsigned type, std::uint32_t value, std::uint32_t count) {
        const std::uint16_t index = table.usCount;
        table.aLCUs[index].usType = static_cast<std::uint16_t>(type);
        table.aLCUs[index].ulValues = value;
        table.aLCUs[index].ulCount = count;
        table.usCount = static_cast<std::uint16_t>(index + 1);
        return *this;
    }

    Table& Amount(std::uint32_t amount) {
        request.ulAmount = amount;
        return *this;
    }
    Table& Limit(unsigned items) {
        request.usMaxDispenseItems = static_cast<std::uint16_t>(items);
        return *this;
    }
    Table& Partial(std::uint32_t flag = 1) {
        request.bAllowPartial = flag;
        return *this;
    }

    using Search = std::int32_t (*)(const MixRequest&, const LcuTable&, LcuNotes&) noexcept;

    /// Runs a search; at most one code may be written by it.
    Found Run(Search search) const {
        LcuNotes notes;
        std::memset(&notes, 0xCC, sizeof(notes));
        ClearRecordedCode();
        const std::uint32_t writesBefore = QxmixCallCount(kQxmixRegSetValueExW);
        Found found;
        found.returned = search(request, table, notes);
        EXPECT_LE(QxmixCallCount(kQxmixRegSetValueExW) - writesBefore, 1U);
        found.notes.assign(notes.aulNotes, notes.aulNotes + kMaxCashUnits);
        found.code = RecordedCode();
        return found;
    }

    /// As the walks and bounds see it.
    SearchUnits Units() const { return SearchUnits(request, table); }

    MixRequest request;
    LcuTable table;
};
