#pragma once

#include "Channel.h"
#include "Records.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// What goes over the channel between the tool and its worker.
enum class MessageKind : std::uint8_t {
    // to the worker
    Open,          ///< OpenOrder; answered by Opened or Broken; always the first
    Calculate,     ///< CalculateOrder; answered by Calculated
    ListTypes,     ///< answered by Catalogue
    SaveRegistry,  ///< answered by Registry
    Job,           ///< bytes of the caller's own; answered by Reported, perhaps Parts before it
    // to the tool
    Opened,      ///< Opening
    Broken,      ///< text: why the library cannot be used
    TraceLine,   ///< text: one line of the module, before the answer during which it arose
    Calculated,  ///< Calculation
    Catalogue,   ///< Catalogue
    Registry,    ///< text: the registry as the text of a registry file
    Part,        ///< bytes of the caller's own; more follow
    Reported,    ///< the last of them
};

class OpenedModule;

/// Which library to open, in which surroundings.
struct OpenOrder {
    std::string library;   ///< file name, or the bare name for the system's own search
    std::string registry;  ///< text of a registry file: what the module reads; empty: start content

    /// Answers in this process, which somebody else watches; null: workers answer.
    std::shared_ptr<OpenedModule> here = nullptr;
};

/// What the library's object holds once it is created.
struct Opening {
    std::uint32_t traceLevel = 0;
    std::uint32_t minimum = 0;  ///< most items of a unit that mixes 6 to 9 pass over
    std::uint16_t mixTypeCount = 0;
};

struct CalculateOrder {
    MixRequest request;
    bool trace = false;  ///< whether to send the lines that arise
};

/// What came back from one calculation.
struct Calculation {
    std::int32_t returned = 0;
    MixRequest request;   ///< as it came back
    MixResult result;     ///< as it came back
    std::string written;  ///< error code that the call left in the registry; empty: none
    std::chrono::nanoseconds took{0};  ///< processor time of the call
    bool isEndless = false;  ///< it was not made, since it never ends; only `written` counts
};

/// One entry of the list of mixes.
struct CatalogueEntry {
    std::uint16_t mixNumber = 0;
    std::uint16_t mixType = 0;
    std::uint16_t subType = 0;
    std::string name;
};

/// The list of mixes as the module gives it.
struct Catalogue {
    std::int32_t returned = 0;
    std::uint32_t recordCount = 0;        ///< records in the list
    std::vector<CatalogueEntry> entries;  ///< none after a failure: a name may be missing then
};

Message ToMessage(MessageKind kind);
Message ToMessage(MessageKind kind, const std::string& text);
Message ToMessage(const OpenOrder& order);
Message ToMessage(const Opening& opening);
Message ToMessage(const CalculateOrder& order);
Message ToMessage(const Calculation& calculation);
Message ToMessage(const Catalogue& catalogue);

MessageKind KindOf(const Message& message);
OpenOrder ReadOpenOrder(const Message& message);
Opening ReadOpening(const Message& message);
CalculateOrder ReadCalculateOrder(const Message& message);
Calculation ReadCalculation(const Message& message);
Catalogue ReadCatalogue(const Message& message);

}  // namespace qxmix
