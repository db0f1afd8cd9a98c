#pragma once

#include <functional>
#include <string>

#include "../vectors/Digest.h"
#include "ModuleUnderTest.h"
#include "RandomRequests.h"

namespace property {

/// Puts one request to a module, whose object is as given and whose records lie so many bytes
/// behind an aligned address; the answer holds the request before and after.
using Calculation =
    std::function<void(const reference::Object& object, unsigned shift, Answer& answer)>;

constexpr std::uint64_t kDigestRequests = 100000;  ///< as many as the kept digest is made of

/// Adds everything that a host sees of a calculation.
void AddTo(Digest& digest, const Answer& answer);

/// 16 hexadecimal digits.
std::string TextOf(const Digest& digest);

/// Random requests that are the same on every build, and what a module answers to them.
struct RequestDigest {
    std::uint64_t asked = 0;  ///< of them, those to which there is an answer in reasonable time
    std::string digest;       ///< FNV-1a over all answers, 16 hexadecimal digits
};

/// @param cases  requests to draw, of all kinds in turn.
RequestDigest DigestOfRequests(std::uint64_t cases, const Calculation& calculate);

}  // namespace property
