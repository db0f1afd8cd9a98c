/// Prints for each library its two digests, which every build gives, and the deepest stack that a
/// calculation took:
///
///     image_digests FOLDER VECTOR-FILE...

#include "Requests.h"

#include "Digest.h"
#include "RequestDigest.h"
#include "VectorFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

namespace {

using emulation::Bytes;
using emulation::CallReport;
using emulation::RequestPlayer;

/// A library at its own base, and what its calculations took.
class Library {
public:
    Library(const std::string& path, emulation::HostCode host)
        : library_(emulation::ReadPe(FileOf(path))), module_(library_, library_.base, host) {}

    std::string VectorDigest(int files, char** paths) {
        Digest digest;
        for (int index = 0; index < files; ++index) {
            VectorFile file(paths[index]);
            for (VectorCase next; file.ReadCase(next);) {
                property::Answer answer;
                std::memcpy(answer.request.data(), &next.request, sizeof(next.request));
                Calculate({next.firstMix, next.lastMix, next.minimum}, next.line % 4, answer);
                property::AddTo(digest, answer);
            }
        }
        return property::TextOf(digest);
    }

    std::string RequestDigest() {
        const auto calculate = [this](const reference::Object& object, unsigned shift,
                                      property::Answer& answer) {
            Calculate(object, shift, answer);
        };
        return property::DigestOfRequests(property::kDigestRequests, calculate).digest;
    }

    unsigned DeepestStack() const { return deepestStack_; }

private:
    static Bytes FileOf(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return Bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    void Calculate(const reference::Object& object, unsigned shift, property::Answer& answer) {
        const CallReport report = player_.Calculate(object, shift, answer);
        deepestStack_ = std::max(deepestStack_, report.stackBytes);
    }

    emulation::PeFile library_;
    emulation::EmulatedModule module_;
    RequestPlayer player_{module_};
    std::uint32_t deepestStack_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fputs("usage: image_digests FOLDER VECTOR-FILE...\n", stderr);
        return 2;
    }
    using emulation::HostCode;
    const std::pair<const char*, HostCode> images[] = {
        {"device", HostCode::Arm}, {"device-armv4t", HostCode::Thumb}, {"windows", HostCode::Arm}};
    for (const auto& [name, host] : images) {
        Library library(std::string(arguments[1]) + "/" + name + "/QXMIX.dll", host);
        const std::string vectors = library.VectorDigest(count - 2, arguments + 2);
        const std::string requests = library.RequestDigest();
        std::printf("%s %s %s %u\n", name, vectors.c_str(), requests.c_str(),
                    library.DeepestStack());
    }
    return 0;
}
