// Runs a fuzz target over the files given, in builds without a fuzzer: what a campaign has found
// stays a test.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

std::vector<std::uint8_t> ReadBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

int main(int argc, char** argv) {
    unsigned files = 0;
    for (int argument = 1; argument < argc; ++argument) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[argument])) {
            const std::vector<std::uint8_t> bytes = ReadBytes(entry.path());
            std::printf("%s\n", entry.path().c_str());
            std::fflush(stdout);  // a target that fails aborts: the last line names its input
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++files;
        }
    }
    std::printf("%u inputs\n", files);
    return files == 0 ? 1 : 0;
}
