#include "ImageTest.h"
#include "JoinedImage.h"
#include "RunWords.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace emulation {
namespace {

struct HostTarget {
    const char* name;  ///< as tests/host/make-hosts knows it
    Target library;
    HostCode code;
};

void PrintTo(const HostTarget& target, std::ostream* out) {
    *out << target.name;
}

/// Hosts that include nothing but the header and take the library's functions through the import
/// library, in the address space of the library.
class Hosts : public testing::TestWithParam<HostTarget> {
protected:
    void SetUp() override {
        const Bytes library = FileOf(PathOf(GetParam().library));
        if (library.empty()) {
            GTEST_SKIP() << "there is no " << PathOf(GetParam().library)
                         << ": run scripts/lib/build-dlls";
        }
        library_ = ReadPe(library);
        std::string pattern = testing::TempDir() + "hostsXXXXXX";
        ASSERT_NE(nullptr, mkdtemp(pattern.data()));
        folder_ = pattern;
        MakeHosts();
    }

    void TearDown() override {
        if (!folder_.empty()) {
            std::filesystem::remove_all(folder_);
        }
    }

    /// Lets a host run at a base. It says itself which of its checks has failed.
    void Run(const char* host, std::uint32_t base) {
        EmulatedModule module(JoinedImage(library_, "QXMIX.dll", hosts_), base, GetParam().code);
        const std::uint32_t list = module.Memory().Allocate(4, Rights::ReadWrite);
        Machine& machine = module.TheMachine();
        const CallReport report =
            machine.Call(machine.Export(host), {kEvent, list}, Convention::Cdecl);
        EXPECT_EQ(0U, EmulatedModule::Value(report));
        EXPECT_EQ("", module.TheTerminal().complaint);
        EXPECT_EQ(1, std::count(module.TheTerminal().calls.begin(),
                                module.TheTerminal().calls.end(), "event 0xcafe01 operation 3"));
        // The test's own host, the word for the list, and the list: both objects are gone.
        constexpr std::size_t kOfTheTest = 3;
        constexpr std::size_t kOfTheList = 1 + 2 * 10;
        EXPECT_EQ(kOfTheTest + kOfTheList, module.Memory().Blocks().size());
    }

    const PeFile& TheHosts() const { return hosts_; }

private:
    static constexpr std::uint32_t kEvent = 0xCAFE01;

    void MakeHosts() {
        const std::string library = PathOf(GetParam().library);
        const std::string importLibrary = library.substr(0, library.size() - 3) + "lib";
        const std::string said = folder_ + "/said";
        const int status =
            RunWords({MAKE_HOSTS, GetParam().name, folder_, importLibrary, MAKE_IMAGE}, said);
        const Bytes text = FileOf(said);
        constexpr int kSkipped = 77;
        if (WIFEXITED(status) && WEXITSTATUS(status) == kSkipped) {
            GTEST_SKIP() << std::string(text.begin(), text.end());
        }
        ASSERT_EQ(0, status) << std::string(text.begin(), text.end());
        hosts_ = ReadPe(FileOf(folder_ + "/Hosts.dll"));
    }

    std::string folder_;
    PeFile library_;
    PeFile hosts_;
};

TEST_P(Hosts, FindEverythingAsTheHeaderSays) {
    for (const std::uint32_t base : kBases) {
        for (const char* host : {"RunHostInC", "RunHostInCpp"}) {
            SCOPED_TRACE(host);
            Run(host, base);
        }
    }
}

TEST_P(Hosts, TakeTheLibrarysFunctionsByItsFileAndTheirNames) {
    std::vector<std::string> taken;
    for (const PeImport& import : TheHosts().imports) {
        if (import.library == "QXMIX.dll") {
            taken.push_back(import.function);
        }
    }
    EXPECT_EQ((std::vector<std::string>{"CreateMixAlgorithm", "DeleteMixAlgorithm"}), taken);
}

INSTANTIATE_TEST_SUITE_P(Targets,
                         Hosts,
                         testing::Values(HostTarget{"device", Target::Device, HostCode::Arm},
                                         HostTarget{"device-armv4t", Target::DeviceThumb,
                                                    HostCode::Thumb},
                                         HostTarget{"1200", Target::Desktop, HostCode::Arm},
                                         HostTarget{"1944", Target::Desktop, HostCode::Arm}),
                         [](const testing::TestParamInfo<HostTarget>& one) {
                             std::string name =
                                 one.param.library == Target::Desktop ? "Microsoft" : "";
                             for (const char* letter = one.param.name; *letter != '\0'; ++letter) {
                                 name += *letter == '-' ? '_' : *letter;
                             }
                             return name;
                         });

}  // namespace
}  // namespace emulation
