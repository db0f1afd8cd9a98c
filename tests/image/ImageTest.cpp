#include "ImageTest.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace emulation {

std::string DllFolder() {
    const char* const folder = std::getenv("QXMIX_DLLS");
    return folder != nullptr ? folder : QXMIX_DLL_FOLDER;
}

std::string PathOf(Target target) {
    switch (target) {
    case Target::Device:
        return DllFolder() + "/device/QXMIX.dll";
    case Target::DeviceThumb:
        return DllFolder() + "/device-armv4t/QXMIX.dll";
    case Target::Desktop:
        break;
    }
    return DllFolder() + "/windows/QXMIX.dll";
}

Bytes FileOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void ImageTest::SetUp() {
    const std::string path = PathOf(TheTarget());
    const Bytes file = FileOf(path);
    if (file.empty()) {
        GTEST_SKIP() << "there is no " << path << ": run scripts/lib/build-dlls";
    }
    library_ = ReadPe(file);
    Reload();
}

void ImageTest::Reload() {
    const HostCode host = TheTarget() == Target::DeviceThumb ? HostCode::Thumb : HostCode::Arm;
    module_ = std::make_unique<EmulatedModule>(library_, std::get<1>(GetParam()), host);
}

void ImageTest::TearDown() {
    if (module_) {
        EXPECT_EQ("", TheTerminal().complaint);
    }
}

std::string
NameOfParameters(const testing::TestParamInfo<std::tuple<Target, std::uint32_t>>& info) {
    constexpr const char* kNames[] = {"Device", "DeviceThumb", "Desktop"};
    char name[32];
    std::snprintf(name, sizeof(name), "%sAt%08X",
                  kNames[static_cast<unsigned>(std::get<0>(info.param))],
                  static_cast<unsigned>(std::get<1>(info.param)));
    return name;
}

}  // namespace emulation
