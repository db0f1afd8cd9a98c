// A program for ARM Linux without any library, which loads the device's own file and answers the
// requests of standard input: qemu-arm runs it as the processor of the device.

#include "ArmLoader.h"
#include "ArmSystem.h"
#include "ArmTerminal.h"
#include "PlayRequests.h"

namespace {

class ArmSurroundings final : public witness::Surroundings {
public:
    bool Read(void* bytes, unsigned size) noexcept override {
        auto* next = static_cast<unsigned char*>(bytes);
        while (size != 0) {
            const int count = arm::Read(0, next, size);
            if (count <= 0) {
                return false;
            }
            next += count;
            size -= static_cast<unsigned>(count);
        }
        return true;
    }

    void Write(const void* bytes, unsigned size) noexcept override {
        if (arm::Write(1, bytes, size) != static_cast<int>(size)) {
            arm::Fail("an answer cannot be written");
        }
    }

    void TakeErrorCode(unsigned char* code) noexcept override { arm::TakeErrorCode(code); }
};

template <typename Function>
Function As(void* address) noexcept {
    return reinterpret_cast<Function>(address);
}

}  // namespace

/// @param arguments  what the kernel puts on the stack: the number of arguments, then the
/// arguments.
extern "C" [[noreturn]] void Run(const std::uint32_t* arguments) noexcept;

void Run(const std::uint32_t* arguments) noexcept {
    if (arguments[0] != 2) {
        arm::Fail("usage: arm-witness LIBRARY.dll <QUESTIONS >ANSWERS");
    }
    unsigned char* const image = arm::LoadLibraryFile(reinterpret_cast<const char*>(arguments[2]));
    const auto enter = As<std::int32_t (*)(void*, std::uint32_t, void*)>(arm::EntryPoint(image));
    if (enter(image, 1, nullptr) != 1) {
        arm::Fail("the library refuses to be loaded");
    }
    ArmSurroundings surroundings;
    const bool played = witness::PlayRequests(
        As<witness::CreateFunction>(arm::FindExport(image, "CreateMixAlgorithm")),
        As<witness::DeleteFunction>(arm::FindExport(image, "DeleteMixAlgorithm")), surroundings);
    if (!played) {
        arm::Fail("the library does not make its objects");
    }
    const char done[] = "ok\n";
    arm::Write(2, done, sizeof(done) - 1);
    arm::Exit(0);
}

asm(".global _start\n"
    "_start:\n"
    "    mov r0, sp\n"
    "    bl Run\n");

extern "C" [[noreturn]] void __cxa_pure_virtual() noexcept;

void __cxa_pure_virtual() noexcept {
    arm::Fail("a pure call");
}
