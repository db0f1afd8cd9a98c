/// A complete host of the module in C++: what a service provider does with it, from loading the
/// library to unloading it.
///
/// It loads the library at run time, asks for the mixes, pays 280 EUR out of three cassettes, and
/// checks the answer before it would move money.
///
///   host <path of libQXMIX.so>
///
/// Exit status 0: everything was as a service provider expects it.

#include "MixAlgorithm.h"
#include "Records.h"
#include "ResultCodes.h"

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
        if (handle_ != nullptr) {
            dlclose(handle_);
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// A function of the library, or of one that it needs; null without it.
    template <typename Function>
    Function* Find(const char* name) const {
        void* const address = handle_ != nullptr ? dlsym(handle_, name) : nullptr;
        Function* function = nullptr;
        std::memcpy(&function, &address, sizeof(function));
        return function;
    }

private:
    void* handle_;
};

/// What the module calls back. It tells of two objects: first of the outer one, which is also what
/// CreateMixAlgorithm returns, then of the inner one.
class Host final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}  // slot 1 is the host's own

    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
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
    auto* const freeBuffer = library.Find<std::int32_t(void*)>("WFMFreeBuffer");
    WFSCDMMIXTYPE** list = nullptr;
    if (freeBuffer == nullptr || outer.GetMixTypes(&list) != kSuccess) {
        return false;
    }
    unsigned count = 0;
    for (; list[count] != nullptr; ++count) {
        std::printf("%3u  %s\n", unsigned{list[count]->usMixNumber}, list[count]->lpszName);
    }
    // The list, its records and its names are one linked allocation.
    return freeBuffer(list) == 0 && count == 10;
}

/// One cassette of whole euros. Its place in the request and its position are the same.
void AddCassette(MixRequest& request, std::uint32_t value, std::uint32_t count) {
    const std::uint16_t place = request.usNumPhysicalCUs;
    PhysicalCashUnit& cassette = request.aPhysicalCUs[place];
    cassette.usPosition = place;
    cassette.usType = std::uint16_t{3};  // a bill cassette
    cassette.cCurrencyID = request.cCurrencyID;
    cassette.ulValues = value;
    cassette.ulCount = count;
    cassette.usStatus = std::uint16_t{0};  // OK
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
bool IsSafe(const MixRequest& asked, const MixResult& result, std::uint32_t amount) {
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
    return paid <= amount && items <= asked.usMaxDispenseItems;
}

/// Pays an amount of whole euros with minimum notes.
///
/// A request goes into one call only. With mixes 4 and 9 the call belongs into a worker with a
/// deadline: their search does not always end.
bool Pay(IMixAlgorithm& outer, std::uint32_t amount) {
    const MixRequest asked = RequestFor(1, amount);
    MixRequest request = asked;
    MixResult result;
    const std::int32_t code = outer.MixCalculate(&request, &result);
    if (code != kSuccess) {
        std::printf("%u EUR: refused with %d\n", amount, code);
        return false;
    }
    if (!IsSafe(asked, result, amount)) {
        std::printf("%u EUR: an answer that must not be carried out\n", amount);
        return false;
    }
    std::printf("%u EUR:", amount);
    for (unsigned place = 0; place < asked.usNumPhysicalCUs; ++place) {
        std::printf(" %u x %u", std::uint32_t{result.aulNotes[place]},
                    std::uint32_t{asked.aPhysicalCUs[place].ulValues});
    }
    // 0 does not mean that everything was paid.
    std::printf(", %u unpaid\n", std::uint32_t{request.ulRemainder});
    return request.ulRemainder == 0;
}

/// The outer object comes from the ordinary allocator and is not cleared: before the first request
/// for the mix types the host stores its event, or null. It lies at 100 where pointers have four
/// bytes, and at 112 where they have eight.
void SetEvent(IMixAlgorithm& outer, void* event) {
    const std::size_t offset = sizeof(void*) == 4 ? 100 : 112;
    std::memcpy(reinterpret_cast<unsigned char*>(&outer) + offset, &event, sizeof(event));
}

bool UseModule(const Library& library, IMixAlgorithm& outer) {
    SetEvent(outer, nullptr);
    const bool listed = ShowMixTypes(library, outer);
    const bool paid = Pay(outer, 280);
    const bool refused = !Pay(outer, 285);  // nothing holds five euros
    return listed && paid && refused;
}

}  // namespace

int main(int count, char** arguments) {
    const Library library(count > 1 ? arguments[1] : "libQXMIX.so");
    auto* const create = library.Find<decltype(CreateMixAlgorithm)>("CreateMixAlgorithm");
    auto* const destroy = library.Find<decltype(DeleteMixAlgorithm)>("DeleteMixAlgorithm");
    if (create == nullptr || destroy == nullptr) {
        std::fprintf(stderr, "no module: %s\n", dlerror());
        return 1;
    }
    Host host;
    IMixAlgorithm* const outer = create(&host);
    if (outer == nullptr) {
        std::fprintf(stderr, "no memory\n");
        return 1;
    }
    const bool succeeded = UseModule(library, *outer);
    destroy();            // the outer object is gone,
    host.DestroyInner();  // and now the inner one
    return succeeded ? 0 : 1;
}
