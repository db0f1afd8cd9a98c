#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A second, plain implementation of the whole calculation: the judge of the module.
///
/// It shares no code with the module and takes no short cut but one: first-fit emptying goes over
/// turns of a loop that end before they have begun. Every other combination is visited, every exact
/// one is held to the limit, every sort moves whole records. It works on the raw bytes that the
/// host exchanges with the module, at any address.
///
/// Every entry takes a step budget, because some calculations take years and some never end. A
/// step is one turn of any loop of a search or of the spreading; the visit of a combination is the
/// turn of its innermost loop.
namespace reference {

constexpr unsigned kMaxUnits = 6;
constexpr std::uint16_t kLastMix = 10;  ///< the first is 1
constexpr unsigned kRequestBytes = 1060;
constexpr unsigned kResultBytes = 24;
constexpr unsigned kTableBytes = 6316;

/// What a host may have changed in the module's object; the defaults are those of a new object.
struct Object {
    std::uint16_t first = 1;         ///< lowest mix number that passes
    std::uint16_t last = kLastMix;   ///< highest mix number that passes
    std::uint32_t cstMinimum = 100;  ///< mixes 6 to 9 leave out units holding no more than this
};

/// How one calculation or one search went.
struct Outcome {
    bool finished = false;      ///< false: the budget ran out, or the search never ends
    bool neverEnds = false;     ///< lastCode is then the one that it leaves for ever
    std::int32_t returned = 0;  ///< 0, -304, -306, -307 or -315
    std::string lastCode;       ///< code recorded last by this call, empty when it recorded none
    std::uint64_t steps = 0;    ///< steps taken, at most the budget
};

/// Calculates one request.
///
/// @param request [kRequestBytes] amount and remainder are rewritten in place.
/// @param result [kResultBytes] cleared first, then the notes by cassette position.
/// @param stepBudget steps after which the calculation is given up.
/// When it does not finish, request and result hold an intermediate state: a caller
/// that needs the originals keeps a copy.
Outcome MixCalculate(const Object& object,
                     std::uint8_t* request,
                     std::uint8_t* result,
                     std::uint64_t stepBudget);

enum class Search { MinimumNotes, EqualNotes, EqualEmptying, FirstFitEmptying, MaximumNotes };

/// One logical unit of an ordered table, as far as a search reads it.
struct Unit {
    std::uint32_t value;
    std::uint32_t count;
    std::uint16_t type;  ///< 4 and 5 are coins, all others count as bank notes
};

/// Runs one search on a table given directly, in table order.
///
/// @param units 0 to kMaxUnits units; no unit at all reads as a cleared table (first value 0).
/// @param partial only 1 allows less than the amount.
/// @param limit most bank notes, and most coins, of one dispense.
/// @param notes grown with zeros to kMaxUnits entries when shorter; only the entries that the
///              search writes change, and only a success gives them a meaning.
Outcome RunSearch(Search search,
                  const std::vector<Unit>& units,
                  std::uint32_t amount,
                  std::uint32_t partial,
                  std::uint16_t limit,
                  std::vector<std::uint32_t>& notes,
                  std::uint64_t stepBudget);

/// The five ways to choose and order the units of a request, in the order of the mix numbers that
/// use them first.
enum class Ordering {
    ByDenomination,                     ///< mixes 1, 2, 3, 10 (ascending for 10)
    ByTotalAmount,                      ///< mix 4
    ByDenominationWithoutLow,           ///< mix 5
    ByDenominationWithoutBelowMinimum,  ///< mixes 6, 7, 8
    ByTotalAmountWithoutBelowMinimum,   ///< mix 9
};

/// Fills a table image with the cassettes of a request grouped into logical units, in the order in
/// which the request names them; every one of the kTableBytes bytes is written.
void BuildTableImage(const std::uint8_t* request, std::uint8_t* table);

/// Fills a table image with the units that an ordering keeps, in its order.
///
/// @param table [kTableBytes] only the unit count (2 bytes) and the kept entries are written; the
///              two bytes after the count and the entries beyond the kept ones stay as they are.
void OrderedTableImage(Ordering ordering,
                       const Object& object,
                       const std::uint8_t* request,
                       std::uint8_t* table);

}  // namespace reference
