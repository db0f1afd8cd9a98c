/// Prints the digest over the answers to random requests, the same on every build.
///   request_digest [number of requests]

#include <cstdio>
#include <cstdlib>

#include "RequestDigest.h"

int main(int count, char** arguments) {
    const std::uint64_t cases =
        count > 1 ? std::strtoull(arguments[1], nullptr, 10) : property::kDigestRequests;
    property::ModuleUnderTest module;
    bool isIntact = true;
    const property::RequestDigest all = property::DigestOfRequests(
        cases, [&](const reference::Object& object, unsigned shift, property::Answer& answer) {
            isIntact = module.Calculate(object, shift, answer) && isIntact;
        });
    std::printf("%llu of %llu requests asked, digest %s\n",
                static_cast<unsigned long long>(all.asked), static_cast<unsigned long long>(cases),
                all.digest.c_str());
    return isIntact ? 0 : 1;
}
