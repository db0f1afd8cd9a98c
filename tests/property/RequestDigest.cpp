#include "RequestDigest.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "LittleEndian.h"

namespace property {
namespace {

constexpr std::uint64_t kStepBudget = 5000;
constexpr std::uint64_t kSeed = 20;

/// Whether the second implementation has an answer within its budget.
bool HasAnswer(const RandomCase& random) {
    reference::RequestBytes request = random.request;
    std::uint8_t result[reference::kResultBytes];
    return reference::MixCalculate(random.object, request.Bytes(), result, kStepBudget).finished;
}

}  // namespace

void AddTo(Digest& digest, const Answer& answer) {
    const u32le returned = static_cast<std::uint32_t>(answer.returned);
    digest.Add(&returned, sizeof(returned));
    digest.Add(answer.request.data(), answer.request.size());
    digest.Add(answer.result.data(), answer.result.size());
    digest.Add(answer.lastCode.c_str(), answer.lastCode.size() + 1);
}

std::string TextOf(const Digest& digest) {
    char text[24];
    std::snprintf(text, sizeof(text), "%016llx", digest.Value());
    return text;
}

RequestDigest DigestOfRequests(std::uint64_t cases, const Calculation& calculate) {
    RequestDigest all;
    Digest digest;
    for (std::uint64_t number = 0; number < cases; ++number) {
        Draw draw(kSeed, number);
        const RandomCase random = MakeRandomCase(kAllKinds[number % std::size(kAllKinds)], draw);
        if (!HasAnswer(random)) {
            continue;
        }
        Answer answer;
        std::copy_n(random.request.Bytes(), reference::kRequestBytes, answer.request.begin());
        calculate(random.object, static_cast<unsigned>(number % 8), answer);
        AddTo(digest, answer);
        ++all.asked;
    }
    all.digest = TextOf(digest);
    return all;
}

}  // namespace property
