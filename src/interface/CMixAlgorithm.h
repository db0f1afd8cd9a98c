#pragma once

/// The object that calculates, and the list of everything that it does.
///
/// It keeps no state between calls beyond its configuration, so calculations may run side by side.
/// Each operation is defined in the folder of its subject: interface, cashunits or mix.

#include "ObjectLayout.h"
#include "Records.h"

class CMixAlgorithm final : public IMixAlgorithm, public MixAlgorithmFields {
public:
    /// Reads the configuration; calls the host back before that, with this object.
    explicit CMixAlgorithm(MixAlgorithmHost* host) noexcept;

    void* Destroy(std::uint32_t flags) noexcept override;
    std::int32_t GetMixTypes(WFSCDMMIXTYPE*** list) noexcept override;
    std::int32_t MixCalculate(MixRequest* request, MixResult* result) noexcept override;

    // -- interface: configuration (Configuration.cpp), failures (Failure.cpp)

    /// Sets ulTraceLevel from the registry, or to 1.
    void ReadTraceLevel() noexcept;

    /// Sets ulCstMinimum4Mix6 from the registry, or to 100.
    void ReadCstMinimum4Mix6() noexcept;

    /// Records an error code in the registry value "CDM", over the one before.
    ///
    /// @param code  8-bit characters, terminated by 0; five in every code of the module.
    /// Nothing is recorded, and nobody is told, when the key is missing.
    static void RegWriteError(const char* code) noexcept;

    // -- cashunits: which units serve a request, and in which order

    /// Groups the cassettes of a request into units of one type, currency and value (LcuTable.cpp).
    ///
    /// @param table  all 6316 bytes are written.
    static void BuildLCUTable(const MixRequest& request, LcuTable& table) noexcept;

    // The five orderings (Ordering.cpp, OrderingRules.h): each keeps the units that may serve,
    // brings their values to the unit of the amount, and sorts them and their cassettes. Entries of
    // the table from its new usCount upwards are not touched.
    void SortLCUByDenomination(const MixRequest& request, LcuTable& table) const noexcept;
    void SortLCUByTotalAmount(const MixRequest& request, LcuTable& table) const noexcept;
    void SortLCUByDenominationWithoutLOWCST(const MixRequest& request,
                                            LcuTable& table) const noexcept;
    void SortLCUByDenomWithoutCSTBelowCSTMin(const MixRequest& request,
                                             LcuTable& table) const noexcept;
    void SortLCUByTotalAmountWithoutCSTBelowCSTMin(const MixRequest& request,
                                                   LcuTable& table) const noexcept;

    // -- mix: how many items of each unit

    /// Holds a combination to the dispense limit; notes and coins are totalled apart
    /// (MaximumDispense.cpp).
    ///
    /// @param request  usMaxDispenseItems: most items of one dispense; a total equal to it passes.
    /// @param table    ordered units; usType of the first usCount is read.
    /// @param notes    items per unit, in table order; totals wrap at 32 bits.
    /// @return 0, or kTooManyItems after recording "971A3" (notes) or else "971A4" (coins).
    static std::int32_t CheckMaximumDispense(const MixRequest& request,
                                             const LcuTable& table,
                                             const LcuNotes& notes) noexcept;

    // The five searches, a file each. All read ulAmount, bAllowPartial and usMaxDispenseItems of
    // the request and usCount and the units' ulValues, ulCount and usType of the table.
    //
    // @param notes  the first usCount entries receive the combination, also one that kTooManyItems
    //   refuses; after another failure none is written.
    // @return 0, kNotDispensable or kInvalidCashUnit (not 1 to 5 units); minimum and maximum notes
    //   also kTooManyItems. Each failure is recorded unless the search's file says otherwise.
    static std::int32_t
    CalcMinimumNotes(const MixRequest& request, const LcuTable& table, LcuNotes& notes) noexcept;
    static std::int32_t
    CalcEqualNotes(const MixRequest& request, const LcuTable& table, LcuNotes& notes) noexcept;
    static std::int32_t
    CalcMaximumNotes(const MixRequest& request, const LcuTable& table, LcuNotes& notes) noexcept;
    static std::int32_t
    CalcEqualEmptying(const MixRequest& request, const LcuTable& table, LcuNotes& notes) noexcept;
    static std::int32_t CalcFirstFitEmptying(const MixRequest& request,
                                             const LcuTable& table,
                                             LcuNotes& notes) noexcept;
};

EXPECT_OBJECT_SIZE(CMixAlgorithm, 124);
