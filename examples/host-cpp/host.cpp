/// A complete host of the module in C++ (C++98): what a service provider does with it, from loading
/// the library to unloading it.
///
/// It loads the library at run time, asks for the mixes, pays 280 EUR out of three cassettes, and
/// checks the answer before it would move money.
///
///   host <path of libQXMIX.so>
///
/// Exit status 0: everything was as a service provider expects it.

#include "qxmix.h"

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <vector>

namespace {

/// The library, loaded while this lives. On the device this is LoadLibrary and GetProcAddress.
class Library {
public:
    explicit Library(const char* path) : handle_(dlopen(path, RTLD_NOW)) {}
    ~Library() {
        if (handle_ != NULL) {
            dlclose(handle_);
        }
    }

    /// A function of the library, or of one that it needs; null without it.
    template <typename Function>
    Function Find(const char* name) const {
        void* const address = handle_ != NULL ? dlsym(handle_, name) : NULL;
        Function function = NULL;
        std::memcpy(&function, &address, sizeof(function));
        return function;
    }

private:
    Library(const Library&);
    Library& operator=(const Library&);

    void* handle_;
};

/// What the module calls back. It tells of two objects: first of the outer one, which is also what
/// CreateMixAlgorithm returns, then of the inner one.
class Host : public MixAlgorithmHost {
public:
    virtual void QXMIX_SLOT Reserved() {}  // slot 1 is the host's own

    virtual QxmixS32 QXMIX_SLOT OnObjectCreated(IMixAlgorithm* object) {
        // The object is not complete yet: it may be kept here, but not called.
        objects_.push_back(object);
        return 0;  // ignored
    }

    /// DeleteMixAlgorithm leaves the inner object to the host, by design. A host that lives as long
    /// as the terminal may leave it where it is; one that comes and goes destroys it.
    void DestroyInner() {
        if (objects_.size() == 2) {
            objects_[1]->Destroy(1);
        }
    }

private:
    std::vector<IMixAlgorithm*> objects_;
};

/// Lists the mixes, as the service provider hands them on to applications.
///
/// @param outer  its event has been set up: the module sets hMixTypesEvent before it answers.
bool ShowMixTypes(const Library& library, IMixAlgorithm& outer) {
    typedef QxmixS32 (*FreeBufferFunction)(void* block);
    const FreeBufferFunction freeBuffer = library.Find<FreeBufferFunction>("WFMFreeBuffer");
    QxmixMixType** list = NULL;
    if (freeBuffer == NULL || outer.GetMixTypes(&list) != kQxmixSuccess) {
        return false;
    }
    unsigned count = 0;
    for (; list[count] != NULL; ++count) {
        std::printf("%3u  %s\n", static_cast<unsigned>(list[count]->usMixNumber),
                    list[count]->lpszName);
    }
    // The list, its records and its names are one linked allocation.
    return freeBuffer(list) == 0 && count != 0;
}

/// One cassette of whole euros. Its place in the request and its position are the same.
void AddCassette(QxmixRequest& request, QxmixU32 value, QxmixU32 count) {
    QxmixCassette& cassette = request.aPhysicalCUs[request.usNumPhysicalCUs];
    cassette.usPosition = request.usNumPhysicalCUs;
    cassette.usType = kQxmixBillCassette;
    std::memcpy(cassette.cCurrencyID, "EUR", 3);
    cassette.ulValues = value;
    cassette.ulCount = count;
    cassette.usStatus = kQxmixOk;
    ++request.usNumPhysicalCUs;
}

QxmixRequest RequestFor(QxmixU16 mix, QxmixU32 amount) {
    QxmixRequest request = QxmixRequest();
    request.usMixNumber = mix;
    request.usMaxDispenseItems = 40;
    std::memcpy(request.cCurrencyID, "EUR", 3);
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

/// Pays an amount of whole euros with minimum notes.
///
/// A request goes into one call only. With mixes 4 and 9 the call belongs into a worker with a
/// deadline: their search does not always end.
bool Pay(IMixAlgorithm& outer, QxmixU32 amount) {
    const QxmixRequest asked = RequestFor(1, amount);
    QxmixRequest request = asked;
    QxmixResult result;
    const QxmixS32 code = outer.MixCalculate(&request, &result);
    if (code != kQxmixSuccess) {
        std::printf("%u EUR: refused with %d\n", static_cast<unsigned>(amount),
                    static_cast<int>(code));
        return false;
    }
    if (!IsSafe(asked, result)) {
        std::printf("%u EUR: an answer that must not be carried out\n",
                    static_cast<unsigned>(amount));
        return false;
    }
    std::printf("%u EUR:", static_cast<unsigned>(amount));
    for (unsigned place = 0; place < asked.usNumPhysicalCUs; ++place) {
        std::printf(" %u x %u", static_cast<unsigned>(result.aulNotes[place]),
                    static_cast<unsigned>(asked.aPhysicalCUs[place].ulValues));
    }
    // 0 does not mean that everything was paid.
    std::printf(", %u unpaid\n", static_cast<unsigned>(request.ulRemainder));
    return request.ulRemainder == 0;
}

bool UseModule(const Library& library, IMixAlgorithm& outer) {
    // The outer object comes from the ordinary allocator and is not cleared: before the first
    // request for the mix types the host stores its event, or null.
    reinterpret_cast<QxmixOuterObject&>(outer).hMixTypesEvent = NULL;
    const bool listed = ShowMixTypes(library, outer);
    const bool paid = Pay(outer, 280);
    const bool refused = !Pay(outer, 285);  // nothing holds five euros
    return listed && paid && refused;
}

}  // namespace

int main(int count, char** arguments) {
    const Library library(count > 1 ? arguments[1] : "libQXMIX.so");
    const QxmixCreateFunction create = library.Find<QxmixCreateFunction>("CreateMixAlgorithm");
    const QxmixDeleteFunction destroy = library.Find<QxmixDeleteFunction>("DeleteMixAlgorithm");
    if (create == NULL || destroy == NULL) {
        std::fprintf(stderr, "no module: %s\n", dlerror());
        return 1;
    }
    Host host;
    IMixAlgorithm* const outer = create(&host);
    if (outer == NULL) {
        std::fprintf(stderr, "no memory\n");
        return 1;
    }
    const bool succeeded = UseModule(library, *outer);
    destroy();            // the outer object is gone,
    host.DestroyInner();  // and now the inner one
    return succeeded ? 0 : 1;
}
