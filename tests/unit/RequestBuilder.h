#pragma once

#include "Records.h"

#include <cstring>

/// What stands in ulRemainder before a calculation.
constexpr std::uint32_t kUntouched = 0xDEADBEEF;

/// A request that shows only the numbers that matter to a test: for EUR, by default with mix 1, a
/// limit of 40 items and the whole amount wanted.
class Request {
public:
    Request() {
        // What belongs to the host differs from everything that the module could take for its own.
        std::memset(&record, 0xEE, sizeof(record));
        record.usMixNumber = std::uint16_t{1};
        record.usMaxDispenseItems = std::uint16_t{40};
        record.bAllowPartial = 0U;
        record.cCurrencyID = {{'E', 'U', 'R'}};
        record.sExponent = std::int16_t{0};
        record.ulAmount = 0U;
        record.usNumPhysicalCUs = std::uint16_t{0};
        record.ulRemainder = kUntouched;
    }

    Request& Mix(unsigned number) {
        record.usMixNumber = static_cast<std::uint16_t>(number);
        return *this;
    }
    Request& Limit(unsigned items) {
        record.usMaxDispenseItems = static_cast<std::uint16_t>(items);
        return *this;
    }
    Request& Amount(std::uint32_t amount) {
        record.ulAmount = amount;
        return *this;
    }
    Request& Partial(std::uint32_t flag = 1) {
        record.bAllowPartial = flag;
        return *this;
    }
    Request& Exponent(int exponent) {
        record.sExponent = static_cast<std::int16_t>(exponent);
        return *this;
    }

    // Each adds a cassette at the next position; Status, At and In then change that cassette.
    Request& Bill(std::uint32_t value, std::uint32_t count) { return Cassette(3, value, count); }
    Request& Coin(std::uint32_t value, std::uint32_t count) { return Cassette(4, value, count); }
    Request& Coupon(std::uint32_t value, std::uint32_t count) { return Cassette(7, value, count); }
    Request& Cassette(unsigned type, std::uint32_t value, std::uint32_t count) {
        const std::uint16_t index = record.usNumPhysicalCUs;
        record.usNumPhysicalCUs = static_cast<std::uint16_t>(index + 1);
        PhysicalCashUnit& cassette = Last();
        cassette.usPosition = index;
        cassette.usType = static_cast<std::uint16_t>(type);
        cassette.cCurrencyID = record.cCurrencyID;
        cassette.ulValues = value;
        cassette.ulCount = count;
        return Status(0);
    }

    Request& Status(unsigned status) {
        Last().usStatus = static_cast<std::uint16_t>(status);
        return *this;
    }
    Request& At(unsigned position) {
        Last().usPosition = static_cast<std::uint16_t>(position);
        return *this;
    }
    Request& In(const char* currency) {
        std::memcpy(&Last().cCurrencyID, currency, sizeof(CurrencyId));
        return *this;
    }

    PhysicalCashUnit& Last() { return record.aPhysicalCUs[record.usNumPhysicalCUs - 1]; }

    MixRequest record;
};
