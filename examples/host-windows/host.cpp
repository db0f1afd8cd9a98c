/// A complete host of the module on desktop Windows: what a service provider does with it, from
/// loading the library to unloading it.
///
/// It prepares the registry, loads the library, asks for the mixes, pays 280 EUR out of three
/// cassettes, reads the code of a refusal, and gives up on a calculation that does not end. Plain
/// C++17 and the Windows API, no extension of a compiler.
///
///   host <path of QXMIX.dll>
///
/// Exit status 0: everything was as a service provider expects it.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include "CashUnitCodes.h"
#include "MixAlgorithm.h"
#include "ObjectLayout.h"
#include "Records.h"
#include "ResultCodes.h"

#include <cstdio>
#include <cstring>

namespace {

using CreateFunction = IMixAlgorithm* (*)(MixAlgorithmHost*);
using DeleteFunction = void (*)();
using FreeBufferFunction = HRESULT(WINAPI*)(void*);

/// The library, loaded while this lives.
class Library {
public:
    explicit Library(const char* path) : handle_(LoadLibraryA(path)) {}
    ~Library() {
        if (handle_ != nullptr) {
            FreeLibrary(handle_);
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// An exported function; null without it.
    template <typename Function>
    Function Find(const char* name) const {
        return handle_ != nullptr ? Cast<Function>(GetProcAddress(handle_, name)) : nullptr;
    }

    /// A function of a library that the module has brought along.
    template <typename Function>
    static Function FindIn(const char* library, const char* name) {
        const HMODULE loaded = GetModuleHandleA(library);
        return loaded != nullptr ? Cast<Function>(GetProcAddress(loaded, name)) : nullptr;
    }

private:
    template <typename Function>
    static Function Cast(FARPROC address) {
        Function function = nullptr;
        std::memcpy(&function, &address, sizeof(function));
        return function;
    }

    HMODULE handle_;
};

/// What the module calls back. It tells of two objects: first of the outer one, which is also what
/// CreateMixAlgorithm returns, then of the inner one.
class Host final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}  // slot 1 is the host's own

    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        // The object is not complete yet: it may be kept here, but not called.
        if (created_ < 2) {
            objects_[created_] = object;
            ++created_;
        }
        return 0;  // ignored
    }

    /// Whether both objects are there: without memory for the inner one nobody says a word, and a
    /// call would go through a null pointer.
    bool IsComplete() const { return created_ == 2; }

    /// DeleteMixAlgorithm leaves the inner object to the host, by design.
    void DestroyInner() {
        if (IsComplete()) {
            objects_[1]->Destroy(1);
        }
    }

private:
    IMixAlgorithm* objects_[2] = {};
    unsigned created_ = 0;
};

/// Creates the key that error codes go to: the module never does, and loses them without it.
bool PrepareRegistry() {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\ErrorCode", 0, nullptr, 0, KEY_WRITE,
                        nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

/// Reads the code of the last failure: five 8-bit characters, though the type says wide text.
///
/// @param code [6] ended by a zero. Of use only after a failure: a success leaves an old code.
bool ReadErrorCode(char* code) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\ErrorCode", 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return false;
    }
    BYTE stored[16] = {};
    DWORD size = sizeof(stored);
    const LONG result = RegQueryValueExW(key, L"CDM", nullptr, nullptr, stored, &size);
    RegCloseKey(key);
    std::memcpy(code, stored, 5);
    code[5] = '\0';
    return result == ERROR_SUCCESS && size == 5;
}

/// Puts the host's event into the outer object, which comes from the ordinary allocator and is not
/// cleared. The module sets it before it lists the mixes.
void SetMixTypesEvent(IMixAlgorithm& outer, HANDLE event) {
    auto* const fields = reinterpret_cast<MixAlgorithmProxyFields*>(
        reinterpret_cast<unsigned char*>(&outer) + sizeof(void*));
    fields->hMixTypesEvent = event;
}

/// Lists the mixes, as the service provider hands them on to applications.
bool ShowMixTypes(IMixAlgorithm& outer, HANDLE event) {
    const auto freeBuffer = Library::FindIn<FreeBufferFunction>("MSXFS.dll", "WFMFreeBuffer");
    WFSCDMMIXTYPE** list = nullptr;
    if (freeBuffer == nullptr || outer.GetMixTypes(&list) != kSuccess) {
        return false;
    }
    unsigned count = 0;
    for (; list[count] != nullptr; ++count) {
        std::printf("%3u  %s\n", unsigned{list[count]->usMixNumber}, list[count]->lpszName);
    }
    // The list, its records and its names are one linked allocation.
    return freeBuffer(list) == 0 && count == 10 && WaitForSingleObject(event, 0) == WAIT_OBJECT_0;
}

/// One cassette of whole euros. Its place in the request and its position are the same.
void AddCassette(MixRequest& request, std::uint32_t value, std::uint32_t count) {
    const std::uint16_t place = request.usNumPhysicalCUs;
    PhysicalCashUnit& cassette = request.aPhysicalCUs[place];
    cassette.usPosition = place;
    cassette.usType = static_cast<std::uint16_t>(CashUnitType::BillCassette);
    cassette.cCurrencyID = request.cCurrencyID;
    cassette.ulValues = value;
    cassette.ulCount = count;
    cassette.usStatus = static_cast<std::uint16_t>(CashUnitStatus::Ok);
    request.usNumPhysicalCUs = static_cast<std::uint16_t>(place + 1);
}

MixRequest RequestFor(unsigned mix, std::uint32_t amount) {
    MixRequest request;
    std::memset(&request, 0, sizeof(request));
    request.usMixNumber = static_cast<std::uint16_t>(mix);
    request.usMaxDispenseItems = std::uint16_t{40};
    request.cCurrencyID = {{'E', 'U', 'R'}};
    request.ulAmount = amount;
    AddCassette(request, 50, 100);
    AddCassette(request, 20, 300);
    AddCassette(request, 10, 20);
    return request;
}

/// Whether an answer may move money: no more than was asked, no more items than the limit and than
/// each cassette holds. Mixes 4 and 9 can answer otherwise, so this is no formality.
///
/// @param asked  the request as it was before the call: the module rewrites amount and remainder.
bool IsSafe(const MixRequest& asked, const MixResult& result) {
    std::uint64_t paid = 0;
    std::uint64_t items = 0;
    const unsigned cassettes = asked.usNumPhysicalCUs;
    for (unsigned place = 0; place < cassettes; ++place) {
        const std::uint64_t taken = result.aulNotes[place];
        if (taken > asked.aPhysicalCUs[place].ulCount) {
            return false;
        }
        paid += taken * asked.aPhysicalCUs[place].ulValues;
        items += taken;
    }
    return paid <= asked.ulAmount && items <= asked.usMaxDispenseItems;
}

/// A calculation in a thread of its own. It belongs to the thread as long as that runs.
struct Calculation {
    IMixAlgorithm* outer;
    MixRequest request;
    MixResult result;
    std::int32_t returned;
};

DWORD WINAPI Calculate(void* argument) {
    auto& calculation = *static_cast<Calculation*>(argument);
    calculation.returned =
        calculation.outer->MixCalculate(&calculation.request, &calculation.result);
    return 0;
}

enum class Outcome { Paid, Refused, Dangerous, NoAnswer };

/// Calculates within a deadline: mixes 4 and 9 need one, since their search does not always end.
///
/// A thread that gives no answer goes on to the end of the process, and so do its records; the
/// module takes no lock and holds nothing else back.
Outcome CalculateWithin(DWORD milliseconds, Calculation& calculation) {
    const MixRequest asked = calculation.request;
    const HANDLE thread = CreateThread(nullptr, 0, Calculate, &calculation, 0, nullptr);
    if (thread == nullptr) {
        return Outcome::NoAnswer;
    }
    const DWORD waited = WaitForSingleObject(thread, milliseconds);
    if (waited != WAIT_OBJECT_0) {
        SetThreadPriority(thread, THREAD_PRIORITY_IDLE);
    }
    CloseHandle(thread);
    if (waited != WAIT_OBJECT_0) {
        return Outcome::NoAnswer;
    }
    if (calculation.returned != kSuccess) {
        return Outcome::Refused;
    }
    return IsSafe(asked, calculation.result) ? Outcome::Paid : Outcome::Dangerous;
}

/// Asks for an amount of whole euros and tells what came of it.
Outcome Ask(IMixAlgorithm& outer, unsigned mix, std::uint32_t amount, DWORD milliseconds) {
    // Not on the stack: a thread without an answer goes on writing to it. A request goes into one
    // call only.
    auto* const calculation = static_cast<Calculation*>(
        HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(Calculation)));
    if (calculation == nullptr) {
        return Outcome::NoAnswer;
    }
    calculation->outer = &outer;
    calculation->request = RequestFor(mix, amount);
    const Outcome outcome = CalculateWithin(milliseconds, *calculation);
    std::printf("mix %u, %u EUR:", mix, static_cast<unsigned>(amount));
    switch (outcome) {
    case Outcome::Paid:
        for (unsigned place = 0; place < calculation->request.usNumPhysicalCUs; ++place) {
            std::printf(" %u x %u", unsigned{calculation->result.aulNotes[place]},
                        unsigned{calculation->request.aPhysicalCUs[place].ulValues});
        }
        // 0 does not mean that everything was paid.
        std::printf(", %u unpaid\n", unsigned{calculation->request.ulRemainder});
        break;
    case Outcome::Refused: {
        char code[6] = "";
        ReadErrorCode(code);
        std::printf(" refused with %d, %s\n", static_cast<int>(calculation->returned), code);
        break;
    }
    case Outcome::Dangerous:
        std::puts(" an answer that must not be carried out");
        break;
    case Outcome::NoAnswer:
        std::puts(" no answer");
        return outcome;  // the records are the thread's
    }
    HeapFree(GetProcessHeap(), 0, calculation);
    return outcome;
}

bool UseModule(IMixAlgorithm& outer) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    SetMixTypesEvent(outer, event);
    const bool listed = ShowMixTypes(outer, event);
    SetMixTypesEvent(outer, nullptr);
    CloseHandle(event);
    constexpr DWORD kDeadline = 2000;
    return listed && Ask(outer, 1, 280, kDeadline) == Outcome::Paid &&
           Ask(outer, 1, 285, kDeadline) == Outcome::Refused;  // nothing holds five euros
}

/// Asks for what mix 4 never ends on. The thread runs on, so the objects stay and so does the
/// library.
bool GiveUp(CreateFunction create) {
    constexpr DWORD kImpatience = 200;
    Host host;
    IMixAlgorithm* const outer = create(&host);
    return outer != nullptr && host.IsComplete() &&
           Ask(*outer, 4, 37, kImpatience) == Outcome::NoAnswer;
}

bool Run(const Library& library) {
    const auto create = library.Find<CreateFunction>("CreateMixAlgorithm");
    const auto destroy = library.Find<DeleteFunction>("DeleteMixAlgorithm");
    if (create == nullptr || destroy == nullptr) {
        std::printf("no module: error %lu\n", GetLastError());
        return false;
    }
    Host host;
    IMixAlgorithm* const outer = create(&host);
    if (outer == nullptr || !host.IsComplete()) {
        std::puts("no memory");
        return false;
    }
    const bool succeeded = UseModule(*outer);
    destroy();            // the outer object is gone,
    host.DestroyInner();  // and now the inner one
    return succeeded && GiveUp(create);
}

}  // namespace

int main(int count, char** arguments) {
    const Library library(count > 1 ? arguments[1] : "QXMIX.dll");
    if (!PrepareRegistry()) {
        std::puts("the registry cannot be written");
        return 1;
    }
    const bool succeeded = Run(library);
    std::puts(succeeded ? "ok" : "not as expected");
    std::fflush(stdout);
    // Not by return: the calculation without an answer still runs in the library.
    ExitProcess(succeeded ? 0 : 1);
}
