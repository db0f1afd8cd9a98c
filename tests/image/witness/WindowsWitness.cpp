// A program of desktop Windows that loads the desktop's library with a real registry and a real
// event, reads its version resource back, and answers the requests of a file.

#include "MixAlgorithmProxy.h"
#include "PlatformApi.h"
#include "PlayRequests.h"

#include <cstdio>
#include <cstring>

namespace {

int complaints = 0;

void Expect(bool condition, const char* what) {
    if (!condition) {
        ++complaints;
        std::printf("not as expected: %s\n", what);
    }
}

/// Creates a key and sets a value of it; a null name only creates.
void Store(HKEY root,
           const wchar_t* path,
           const wchar_t* name,
           DWORD type,
           const void* bytes,
           DWORD size) {
    HKEY key = nullptr;
    Expect(RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr) ==
               ERROR_SUCCESS,
           "a key of the registry can be created");
    if (name != nullptr) {
        RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(bytes), size);
    }
    RegCloseKey(key);
}

/// Takes the value "CDM" out of the registry; it must be five bytes under the type of text.
void TakeCode(unsigned char* code) {
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\ErrorCode", 0, KEY_ALL_ACCESS, &key);
    unsigned char stored[16] = {};
    DWORD size = sizeof(stored);
    DWORD type = 0;
    if (RegQueryValueExW(key, L"CDM", nullptr, &type, stored, &size) == ERROR_SUCCESS) {
        Expect(type == REG_SZ && size == 5, "the error code is five bytes of text");
        std::memcpy(code, stored, 5);
        RegDeleteValueW(key, L"CDM");
    }
    RegCloseKey(key);
}

class WindowsSurroundings final : public witness::Surroundings {
public:
    WindowsSurroundings(std::FILE* questions, std::FILE* answers)
        : questions_(questions), answers_(answers) {}

    bool Read(void* bytes, unsigned size) noexcept override {
        return std::fread(bytes, 1, size, questions_) == size;
    }
    void Write(const void* bytes, unsigned size) noexcept override {
        Expect(std::fwrite(bytes, 1, size, answers_) == size, "an answer can be written");
    }
    void TakeErrorCode(unsigned char* code) noexcept override { TakeCode(code); }

private:
    std::FILE* questions_;
    std::FILE* answers_;
};

template <typename Function>
Function FunctionOf(HMODULE library, const char* name) {
    void (*address)() = reinterpret_cast<void (*)()>(GetProcAddress(library, name));
    Expect(address != nullptr, name);
    return reinterpret_cast<Function>(address);
}

void CheckVersion(const char* path) {
    DWORD unused = 0;
    static unsigned char block[4096];
    Expect(GetFileVersionInfoSizeA(path, &unused) <= sizeof(block) &&
               GetFileVersionInfoA(path, 0, sizeof(block), block) != 0,
           "the version resource can be read");
    void* found = nullptr;
    UINT size = 0;
    if (VerQueryValueA(block, "\\", &found, &size) != 0) {
        const auto* const version = static_cast<const VS_FIXEDFILEINFO*>(found);
        Expect(version->dwFileVersionMS == 0x60000 && version->dwFileVersionLS == 0x20000 &&
                   version->dwProductVersionMS == 0x60000 && version->dwProductVersionLS == 0x20000,
               "file and product version are 6.0.2.0");
    } else {
        Expect(false, "there are version numbers");
    }
    Expect(VerQueryValueA(block, "\\StringFileInfo\\040904B0\\FileVersion", &found, &size) != 0 &&
               std::strcmp(static_cast<const char*>(found), "V 06.00.02") == 0,
           "the version's text is V 06.00.02");
    Expect(VerQueryValueA(block, "\\StringFileInfo\\040904B0\\InternalName", &found, &size) != 0 &&
               std::strcmp(static_cast<const char*>(found), "QXMix") == 0,
           "the internal name is QXMix");
}

void CheckObjects(witness::CreateFunction create, witness::DeleteFunction remove) {
    witness::Host host;
    IMixAlgorithm* const module = create(&host);
    const auto* const inner = static_cast<const CMixAlgorithm*>(host.inner);
    Expect(inner->ulTraceLevel == 7U, "the trace level comes from the registry");
    Expect(inner->ulCstMinimum4Mix6 == 25U, "the minimum comes from the registry");

    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static_cast<MixAlgorithmProxy*>(module)->hMixTypesEvent = event;
    WFSCDMMIXTYPE** list = nullptr;
    Expect(module->GetMixTypes(&list) == 0, "the mix types are listed");
    Expect(WaitForSingleObject(event, 0) == WAIT_OBJECT_0, "the event is set");
    unsigned count = 0;
    while (list != nullptr && list[count] != nullptr) {
        Expect(list[count]->usMixNumber == count + 1, "the mix numbers are in order");
        ++count;
    }
    Expect(count == 10, "there are ten mixes");
    const auto freeBuffer =
        FunctionOf<HRESULT(WINAPI*)(void*)>(GetModuleHandleW(L"MSXFS.dll"), "WFMFreeBuffer");
    Expect(freeBuffer(list) == 0, "the list can be freed");
    CloseHandle(event);
    remove();
    host.inner->Destroy(1);
}

}  // namespace

int main(int argc, char** argv) {
    std::puts("started");
    std::fflush(stdout);
    if (argc != 4) {
        std::puts("usage: WindowsWitness LIBRARY.dll QUESTIONS ANSWERS");
        return 2;
    }
    const DWORD traceLevel = 7;
    Store(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\ErrorCode", nullptr, 0, nullptr, 0);
    Store(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ATM\\DevInfo\\CDM", L"CSTMinimum4Mix6", REG_SZ, L"25", 6);
    Store(HKEY_CLASSES_ROOT, L"WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser", L"TraceLevel",
          REG_DWORD, &traceLevel, sizeof(traceLevel));
    const HMODULE library = LoadLibraryA(argv[1]);
    Expect(library != nullptr, "the library can be loaded");
    std::FILE* const questions = std::fopen(argv[2], "rb");
    std::FILE* const answers = std::fopen(argv[3], "wb");
    Expect(questions != nullptr && answers != nullptr, "the files can be opened");
    if (complaints == 0) {
        const auto create = FunctionOf<witness::CreateFunction>(library, "CreateMixAlgorithm");
        const auto remove = FunctionOf<witness::DeleteFunction>(library, "DeleteMixAlgorithm");
        CheckVersion(argv[1]);
        CheckObjects(create, remove);
        WindowsSurroundings surroundings(questions, answers);
        Expect(witness::PlayRequests(create, remove, surroundings), "the objects are created");
        Expect(std::fclose(answers) == 0, "the answers can be written");
        Expect(FreeLibrary(library) != 0, "the library can be unloaded");
    }
    if (complaints != 0) {
        return 1;
    }
    std::puts("ok");
    return 0;
}
