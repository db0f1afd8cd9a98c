#pragma once

#include "EmulatedModule.h"

#include <gtest/gtest.h>

#include <tuple>

namespace emulation {

enum class Target {
    Device,       ///< ARMv4
    DeviceThumb,  ///< ARMv4T, with a host of Thumb code
    Desktop,
};

/// Folder that scripts/lib/build-dlls fills.
std::string DllFolder();

/// The library file of a target, and the file's bytes.
std::string PathOf(Target target);
Bytes FileOf(const std::string& path);

/// The address that a library is linked for, a low one as the device's system uses it, and one that
/// is negative as a signed number.
constexpr std::uint32_t kBases[] = {0x10000000, 0x01B60000, 0x9F3C0000};

/// A test of one library at one base; it is skipped when the library has not been built.
class ImageTest : public testing::TestWithParam<std::tuple<Target, std::uint32_t>> {
protected:
    void SetUp() override;
    void TearDown() override;

    Target TheTarget() const { return std::get<0>(GetParam()); }
    EmulatedModule& Module() { return *module_; }
    Terminal& TheTerminal() { return module_->TheTerminal(); }
    GuestMemory& Memory() { return module_->Memory(); }
    PeFile& Library() { return library_; }

    /// Loads the library again, into a new terminal.
    void Reload();

private:
    PeFile library_;
    std::unique_ptr<EmulatedModule> module_;
};

std::string NameOfParameters(const testing::TestParamInfo<std::tuple<Target, std::uint32_t>>& info);

/// Runs the tests of a class for all libraries at all bases.
#define FOR_EVERY_IMAGE(TestClass)                                                                 \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Images, TestClass,                                                                         \
        testing::Combine(testing::Values(Target::Device, Target::DeviceThumb, Target::Desktop),    \
                         testing::ValuesIn(kBases)),                                               \
        NameOfParameters)

/// Runs the tests of a class for all libraries at one base.
#define FOR_EVERY_LIBRARY(TestClass)                                                               \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        Images, TestClass,                                                                         \
        testing::Combine(testing::Values(Target::Device, Target::DeviceThumb, Target::Desktop),    \
                         testing::Values(kBases[1])),                                              \
        NameOfParameters)

}  // namespace emulation
