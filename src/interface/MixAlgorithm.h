#pragma once

/// The binary interface between the module and the service provider that loads it.
///
/// Each interface is a list of virtual slots in the order written here. There is no C++ destructor
/// among them, because compilers disagree on how many slots a destructor takes. Slots do not throw.
/// On x86 Windows the slots are __thiscall and the two exports __cdecl.

#include "LittleEndian.h"

#include <cstdint>

struct MixRequest;
struct MixResult;

/// One entry of the list of mix types. Source: WFSCDMMIXTYPE of the XFS CDM interface.
///
/// May start at any address, as all records: the XFS manager promises no alignment of its memory.
struct WFSCDMMIXTYPE {
    u16le usMixNumber;               ///< 1 to 10
    u16le usMixType;                 ///< 1: a mix algorithm
    u16le usSubType;                 ///< 1 minimum bills, 2 equal emptying, 3 maximum cash units
    unsigned char acPad6[2];         ///< never written
    AnywherePointer<char> lpszName;  ///< name, 8-bit characters, terminated by 0
};

/// What the service provider holds and calls.
class IMixAlgorithm {
public:
    /// Slot 1. Ends the object's life; afterwards its slots are those of the bare interface.
    /// [one thread, no other call on this object]
    ///
    /// @param flags  bit 0: free the object's storage too.
    /// @return the object's address, freed or not.
    virtual void* Destroy(std::uint32_t flags) noexcept;

    /// Slot 2. Lists the mixes that MixCalculate offers. [any thread]
    ///
    /// @param list  where to store the list: pointers to the records, ended by a null pointer.
    ///   The list, its records and names are one linked allocation of the XFS manager; it belongs
    ///   to the caller, who frees it with one call of WFMFreeBuffer.
    /// @return 0, or the XFS manager's code of the first allocation that failed; the list is then
    ///   left as far as it got, still ended by a null pointer.
    virtual std::int32_t GetMixTypes(WFSCDMMIXTYPE*** list) noexcept = 0;

    /// Slot 3. Decides how many items to take from each cassette.
    /// [any thread; concurrent calls need requests and results of their own]
    ///
    /// @param request  the cassettes and what is asked; ulAmount and ulRemainder are rewritten.
    /// @param result   items per cassette position; all zero after any failure.
    /// @return 0, or one of ResultCodes.h. 0 does not mean that everything was paid: what is
    ///   missing shows in ulRemainder.
    virtual std::int32_t MixCalculate(MixRequest* request, MixResult* result) noexcept = 0;

protected:
    IMixAlgorithm() noexcept = default;
    IMixAlgorithm(const IMixAlgorithm&) = delete;
    IMixAlgorithm& operator=(const IMixAlgorithm&) = delete;
    ~IMixAlgorithm() noexcept;
};

/// What the service provider implements and passes to CreateMixAlgorithm.
class MixAlgorithmHost {
public:
    /// Slot 1. The host's own; the module never calls it.
    virtual void Reserved() noexcept = 0;

    /// Slot 2. Takes each new object while it is being constructed: first the outer one, then the
    /// one inside it. [the thread that calls CreateMixAlgorithm]
    ///
    /// @param object  the object; its own address already stands in the word after its slot table.
    /// @return ignored.
    virtual std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept = 0;

protected:
    ~MixAlgorithmHost() = default;
};

extern "C" {
/// Creates a pair of objects and makes it the current instance; an earlier pair lives on, but
/// DeleteMixAlgorithm no longer reaches it. [one thread for both exports]
///
/// @param host  called back once for each of the two objects; used during this call only.
/// @return the outer object, owned by the module until DeleteMixAlgorithm; null without memory for
///   it. Without memory for the inner object its slots 2 and 3 must not be called.
IMixAlgorithm* CreateMixAlgorithm(MixAlgorithmHost* host);

/// Destroys the outer object of the current instance, if there is one. The inner object stays
/// allocated; a host that minds destroys it through its slot 1 with flag 1.
void DeleteMixAlgorithm();
}
