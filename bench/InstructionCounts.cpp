// Calls the shared library with named requests and has callgrind dump each call's costs under the
// request's name. Run under `valgrind --tool=callgrind`; scripts/lib/count-instructions does.

#include "HostRequest.h"

#include "MixAlgorithm.h"

#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

using bench::Question;

struct NamedRequest {
    std::string name;
    unsigned mixNumber;
    Question question;
};

std::vector<bench::Unit> Holding(std::uint32_t count, std::initializer_list<std::uint32_t> values) {
    std::vector<bench::Unit> units;
    for (const std::uint32_t value : values) {
        units.push_back({value, count});
    }
    return units;
}

/// Five cassettes in the order of their slots.
std::vector<bench::Unit> EverydayCassettes() {
    return {{10, 1900}, {50, 1200}, {100, 800}, {20, 2100}, {5, 1500}};
}

void AddEverydayRequests(std::vector<NamedRequest>& requests) {
    for (unsigned mix = 1; mix <= 10; ++mix) {
        requests.push_back(
            {"everyday-mix-" + std::to_string(mix), mix, {EverydayCassettes(), 185, 40, false}});
    }
}

/// Each mix with every amount from 5 to 500 that ends in 0 or 5.
std::vector<NamedRequest> SmallAmounts() {
    std::vector<NamedRequest> requests;
    for (unsigned mix = 1; mix <= 10; ++mix) {
        for (std::uint32_t amount = 5; amount <= 500; amount += 5) {
            requests.push_back({"mix-" + std::to_string(mix) + "/" + std::to_string(amount),
                                mix,
                                {EverydayCassettes(), amount, 40, false}});
        }
    }
    return requests;
}

/// Amounts that no combination makes, up to the largest that a call takes.
void AddImpossibleRequests(std::vector<NamedRequest>& requests) {
    const std::vector<bench::Unit> cassettes = Holding(4000000, {500, 200, 100, 50, 20});
    for (const unsigned mix : {1U, 2U, 3U, 10U}) {
        requests.push_back(
            {"no-divisor-mix-" + std::to_string(mix), mix, {cassettes, 2000000003, 40, false}});
    }
}

/// Requests that a plain enumeration takes seconds to minutes for.
void AddHardRequests(std::vector<NamedRequest>& requests) {
    const std::vector<bench::Unit> five = Holding(3000, {500, 50, 20, 10, 5});
    requests.push_back({"hard-equal-notes", 2, {five, 20000, 40, false}});
    requests.push_back({"hard-equal-emptying", 3, {five, 20000, 40, false}});
    requests.push_back({"hard-maximum-notes", 10, {five, 100003, 200, false}});
}

/// The requests that the module itself takes longest for, of some thousand like the benchmarks'.
void AddLongestRequests(std::vector<NamedRequest>& requests) {
    const std::vector<bench::Unit> wide = {
        {500, 1528}, {200, 2860}, {100, 2289}, {50, 2170}, {20, 1353}};
    const std::vector<bench::Unit> full = {
        {200, 764}, {100, 1439}, {20, 2088}, {10, 2669}, {5, 1145}};
    const std::vector<bench::Unit> few = {{100, 30}, {50, 66}, {20, 132}, {10, 54}, {5, 80}};
    const std::vector<bench::Unit> uneven = {{500, 20}, {50, 139}, {20, 85}, {10, 36}, {5, 83}};
    requests.push_back({"longest-equal-notes-40", 2, {wide, 11127, 40, true}});
    requests.push_back({"longest-equal-notes-60", 2, {wide, 13182, 60, true}});
    requests.push_back({"longest-equal-emptying-40", 3, {full, 790, 40, false}});
    requests.push_back({"longest-nearly-empty-60", 3, {few, 1825, 60, false}});
    requests.push_back({"longest-maximum-notes-200", 10, {uneven, 18340, 200, false}});
}

std::vector<NamedRequest> NamedRequests() {
    std::vector<NamedRequest> requests;
    AddEverydayRequests(requests);
    AddImpossibleRequests(requests);
    AddHardRequests(requests);
    AddLongestRequests(requests);
    return requests;
}

/// Keeps the objects that it is told about, to destroy the one that the module leaves behind.
class Host final : public MixAlgorithmHost {
public:
    IMixAlgorithm* last = nullptr;

    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        last = object;
        return 0;
    }
};

std::int32_t Call(IMixAlgorithm& module, const NamedRequest& named) {
    MixRequest request = bench::RequestOf(named.question, named.mixNumber);
    MixResult result{};
    CALLGRIND_ZERO_STATS;
    const std::int32_t returned = module.MixCalculate(&request, &result);
    CALLGRIND_DUMP_STATS_AT(named.name.c_str());
    return returned;
}

}  // namespace

int main(int argc, char** argv) {
    const bool wantsAmounts = argc > 1 && std::strcmp(argv[1], "--amounts") == 0;
    Host host;
    IMixAlgorithm* const module = CreateMixAlgorithm(&host);
    for (const NamedRequest& named : wantsAmounts ? SmallAmounts() : NamedRequests()) {
        Call(*module, named);  // the first call binds the functions that the library imports
        std::printf("%s %d\n", named.name.c_str(), Call(*module, named));
    }
    DeleteMixAlgorithm();
    host.last->Destroy(1);
    return 0;
}
