/// A complete host of the module on desktop Windows: what a service provider does with it, from
/// loading the library to unloading it.
///
/// It prepares the registry, loads the library, asks for the mixes, pays 280 EUR out of three
/// cassettes, reads the code of a refusal, and gives up on a calculation that does not end. C++98,
/// the Windows API and qxmix.h, no extension of a compiler.
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

#include "qxmix.h"

// Not <cstdio>: the oldest of the compilers do not have its names in std.
#include <stdio.h>
#include <string.h>

namespace {

typedef HRESULT(WINAPI* FreeBufferFunction)(void*);

/// The library, loaded while this lives.
class Library {
public:
    explicit Library(const char* path) : handle_(LoadLibraryA(path)) {}
    ~Library() {
        if (handle_ != NULL) {
            FreeLibrary(handle_);
        }
    }

    /// Finds an exported function; null without it.
    template <typename Function>
    void Find(const char* name, Function& function) const {
        Take(handle_ != NULL ? GetProcAddress(handle_, name) : NULL, function);
    }

    /// A function of a library that the module has brought along.
    template <typename Function>
    static void FindIn(const char* library, const char* name, Function& function) {
        const HMODULE loaded = GetModuleHandleA(library);
        Take(loaded != NULL ? GetProcAddress(loaded, name) : NULL, function);
    }

private:
    Library(const Library&);
    Library& operator=(const Library&);

    template <typename Function>
    static void Take(FARPROC address, Function& function) {
        memcpy(&function, &address, sizeof(function));
    }

    HMODULE handle_;
};

/// What the module calls back. It tells of two objects: first of the outer one, which is also what
/// CreateMixAlgorithm returns, then of the inner one.
class Host : public MixAlgorithmHost {
public:
    Host() : created_(0) {}

    virtual void QXMIX_SLOT Reserved() {}  // slot 1 is the host's own

    virtual QxmixS32 QXMIX_SLOT OnObjectCreated(IMixAlgorithm* object) {
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
    IMixAlgorithm* objects_[2];
    unsigned created_;
};

/// Creates the key that error codes go to: the module never does, and loses them without it.
bool PrepareRegistry() {
    HKEY key = NULL;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\ErrorCode", 0, NULL, 0, KEY_WRITE,
                        NULL, &key, NULL) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

/// Reads the code of the last failure: five 8-bit characters, though the type says wide text.
///
/// @param code [6] ended by a zero. Of use only after a failure: a success leaves an old code.
bool ReadErrorCode(char* code) {
    HKEY key = NULL;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\ErrorCode", 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return false;
    }
    BYTE stored[16] = {0};
    DWORD size = sizeof(stored);
    const LONG result = RegQueryValueExW(key, L"CDM", NULL, NULL, stored, &size);
    RegCloseKey(key);
    memcpy(code, stored, 5);
    code[5] = '\0';
    return result == ERROR_SUCCESS && size == 5;
}

/// Puts the host's event into the outer object, which comes from the ordinary allocator and is not
/// cleared. The module sets it before it lists the mixes.
void SetMixTypesEvent(IMixAlgorithm& outer, HANDLE event) {
    reinterpret_cast<QxmixOuterObject&>(outer).hMixTypesEvent = event;
}

/// Lists the mixes, as the service provider hands them on to applications.
bool ShowMixTypes(IMixAlgorithm& outer, HANDLE event) {
    FreeBufferFunction freeBuffer = NULL;
    Library::FindIn("MSXFS.dll", "WFMFreeBuffer", freeBuffer);
    QxmixMixType** list = NULL;
    if (freeBuffer == NULL || outer.GetMixTypes(&list) != kQxmixSuccess) {
        return false;
    }
    unsigned count = 0;
    for (; list[count] != NULL; ++count) {
        printf("%3u  %s\n", static_cast<unsigned>(list[count]->usMixNumber), list[count]->lpszName);
    }
    // The list, its records and its names are one linked allocation.
    return freeBuffer(list) == 0 && count == 10 && WaitForSingleObject(event, 0) == WAIT_OBJECT_0;
}

/// One cassette of whole euros. Its place in the request and its position are the same.
void AddCassette(QxmixRequest& request, QxmixU32 value, QxmixU32 count) {
    QxmixCassette& cassette = request.aPhysicalCUs[request.usNumPhysicalCUs];
    cassette.usPosition = request.usNumPhysicalCUs;
    cassette.usType = kQxmixBillCassette;
    memcpy(cassette.cCurrencyID, "EUR", 3);
    cassette.ulValues = value;
    cassette.ulCount = count;
    cassette.usStatus = kQxmixOk;
    ++request.usNumPhysicalCUs;
}

QxmixRequest RequestFor(QxmixU16 mix, QxmixU32 amount) {
    QxmixRequest request;
    memset(&request, 0, sizeof(request));
    request.usMixNumber = mix;
    request.usMaxDispenseItems = 40;
    memcpy(request.cCurrencyID, "EUR", 3);
    request.ulAmount = amount;
    AddCassette(request, 50, 100);
    AddCassette(request, 20, 300);
    AddCassette(request, 10, 20);
    return request;
}

/// Whether an answer may move money: no more than was asked, no more items than the limit and than
/// each cassette holds. Mixes 4 and 9 can answer otherwise, so this is no formality. Nothing here
/// wraps: each step is held to what is left of the amount and of the limit.
///
/// @param asked  the request as it was before the call: the module rewrites amount and remainder.
bool IsSafe(const QxmixRequest& asked, const QxmixResult& result) {
    QxmixU32 amountLeft = asked.ulAmount;
    QxmixU32 itemsLeft = asked.usMaxDispenseItems;
    for (unsigned place = 0; place < asked.usNumPhysicalCUs; ++place) {
        const QxmixCassette& cassette = asked.aPhysicalCUs[place];
        const QxmixU32 taken = result.aulNotes[place];
        if (taken > cassette.ulCount || taken > itemsLeft ||
            (cassette.ulValues != 0 && taken > amountLeft / cassette.ulValues)) {
            return false;
        }
        amountLeft -= taken * cassette.ulValues;
        itemsLeft -= taken;
    }
    return true;
}

/// A calculation in a thread of its own. It belongs to the thread as long as that runs.
struct Calculation {
    IMixAlgorithm* outer;
    QxmixRequest request;
    QxmixResult result;
    QxmixS32 returned;
};

DWORD WINAPI Calculate(void* argument) {
    Calculation& calculation = *static_cast<Calculation*>(argument);
    calculation.returned =
        calculation.outer->MixCalculate(&calculation.request, &calculation.result);
    return 0;
}

enum Outcome { kPaid, kRefused, kDangerous, kNoAnswer };

/// Calculates within a deadline: mixes 4 and 9 need one, since their search does not always end.
///
/// A thread that gives no answer goes on to the end of the process, and so do its records; the
/// module takes no lock and holds nothing else back.
Outcome CalculateWithin(DWORD milliseconds, Calculation& calculation) {
    const QxmixRequest asked = calculation.request;
    const HANDLE thread = CreateThread(NULL, 0, Calculate, &calculation, 0, NULL);
    if (thread == NULL) {
        return kNoAnswer;
    }
    const DWORD waited = WaitForSingleObject(thread, milliseconds);
    if (waited != WAIT_OBJECT_0) {
        SetThreadPriority(thread, THREAD_PRIORITY_IDLE);
    }
    CloseHandle(thread);
    if (waited != WAIT_OBJECT_0) {
        return kNoAnswer;
    }
    if (calculation.returned != kQxmixSuccess) {
        return kRefused;
    }
    return IsSafe(asked, calculation.result) ? kPaid : kDangerous;
}

/// Asks for an amount of whole euros and tells what came of it.
Outcome Ask(IMixAlgorithm& outer, QxmixU16 mix, QxmixU32 amount, DWORD milliseconds) {
    // Not on the stack: a thread without an answer goes on writing to it. A request goes into one
    // call only.
    Calculation* const calculation = static_cast<Calculation*>(
        HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(Calculation)));
    if (calculation == NULL) {
        return kNoAnswer;
    }
    calculation->outer = &outer;
    calculation->request = RequestFor(mix, amount);
    const Outcome outcome = CalculateWithin(milliseconds, *calculation);
    printf("mix %u, %u EUR:", static_cast<unsigned>(mix), static_cast<unsigned>(amount));
    switch (outcome) {
    case kPaid:
        for (unsigned place = 0; place < calculation->request.usNumPhysicalCUs; ++place) {
            printf(" %u x %u", static_cast<unsigned>(calculation->result.aulNotes[place]),
                   static_cast<unsigned>(calculation->request.aPhysicalCUs[place].ulValues));
        }
        // 0 does not mean that everything was paid.
        printf(", %u unpaid\n", static_cast<unsigned>(calculation->request.ulRemainder));
        break;
    case kRefused: {
        char code[6] = "";
        ReadErrorCode(code);
        printf(" refused with %d, %s\n", static_cast<int>(calculation->returned), code);
        break;
    }
    case kDangerous:
        puts(" an answer that must not be carried out");
        break;
    case kNoAnswer:
        puts(" no answer");
        return outcome;  // the records are the thread's
    }
    HeapFree(GetProcessHeap(), 0, calculation);
    return outcome;
}

bool UseModule(IMixAlgorithm& outer) {
    const HANDLE event = CreateEventW(NULL, TRUE, FALSE, NULL);
    SetMixTypesEvent(outer, event);
    const bool listed = ShowMixTypes(outer, event);
    SetMixTypesEvent(outer, NULL);
    CloseHandle(event);
    const DWORD kDeadline = 2000;
    return listed && Ask(outer, 1, 280, kDeadline) == kPaid &&
           Ask(outer, 1, 285, kDeadline) == kRefused;  // nothing holds five euros
}

/// Asks for what mix 4 never ends on. The thread runs on, so the objects stay and so does the
/// library.
bool GiveUp(QxmixCreateFunction create) {
    const DWORD kImpatience = 200;
    Host host;
    IMixAlgorithm* const outer = create(&host);
    return outer != NULL && host.IsComplete() && Ask(*outer, 4, 37, kImpatience) == kNoAnswer;
}

bool Run(const Library& library) {
    QxmixCreateFunction create = NULL;
    QxmixDeleteFunction destroy = NULL;
    library.Find("CreateMixAlgorithm", create);
    library.Find("DeleteMixAlgorithm", destroy);
    if (create == NULL || destroy == NULL) {
        printf("no module: error %lu\n", GetLastError());
        return false;
    }
    Host host;
    IMixAlgorithm* const outer = create(&host);
    if (outer == NULL || !host.IsComplete()) {
        puts("no memory");
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
        puts("the registry cannot be written");
        return 1;
    }
    const bool succeeded = Run(library);
    puts(succeeded ? "ok" : "not as expected");
    fflush(stdout);
    // Not by return: the calculation without an answer still runs in the library.
    ExitProcess(succeeded ? 0 : 1);
}
