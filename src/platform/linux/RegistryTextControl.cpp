/// The host's side of registry files: loading and saving the whole content.

#include "Guarded.h"
#include "HostControl.h"
#include "RegistryStore.h"
#include "RegistryText.h"
#include "TextEncoding.h"
#include "WholeFile.h"

#include <cstring>

namespace {

void Tell(QxmixTextError* error, std::uint32_t line, const std::string& message) {
    if (error == nullptr) {
        return;
    }
    const std::string_view cut = CutUtf8(message, sizeof(error->message) - 1);
    *error = {};
    error->line = line;
    std::memcpy(error->message, cut.data(), cut.size());
}

/// Runs an action on texts and files; what it throws becomes a number and a message.
template <typename Action>
std::int32_t Told(QxmixTextError* error, std::int32_t whenFileFails, Action action) noexcept {
    return Guarded<std::int32_t>(kQxmixErrorOutOfMemory, [&]() -> std::int32_t {
        Tell(error, 0, "no memory");
        try {
            action();
        } catch (const RegistryTextFailure& failure) {
            Tell(error, failure.line, failure.message);
            return kQxmixErrorInvalidData;
        } catch (const FileFailure& failure) {
            Tell(error, 0, failure.message);
            return failure.isMissing ? kQxmixErrorFileNotFound : whenFileFails;
        }
        Tell(error, 0, "");
        return 0;
    });
}

void Replace(std::string_view text) {
    RegistryStore::Instance().Replace(ReadRegistryText(text));
}

std::string CurrentText() {
    return RegistryStore::Instance().WithContent(WriteRegistryText);
}

}  // namespace

std::int32_t QxmixRegistryLoadText(const void* text, std::size_t size, QxmixTextError* error) {
    return Told(error, kQxmixErrorReadFault, [=] {
        Replace({static_cast<const char*>(text), size});
    });
}

std::int32_t QxmixRegistryLoadFile(const char* path, QxmixTextError* error) {
    return Told(error, kQxmixErrorReadFault, [=] { Replace(ReadWholeFile(path)); });
}

std::int32_t QxmixRegistrySaveText(void* buffer, std::size_t capacity, std::size_t* size) {
    std::string text;
    const std::int32_t result =
        Told(nullptr, kQxmixErrorWriteFault, [&text] { text = CurrentText(); });
    *size = text.size();
    if (result != 0) {
        return result;
    }
    if (text.size() > capacity) {
        return kQxmixErrorMoreData;
    }
    std::memcpy(buffer, text.data(), text.size());
    return 0;
}

std::int32_t QxmixRegistrySaveFile(const char* path, QxmixTextError* error) {
    return Told(error, kQxmixErrorWriteFault, [path] { ReplaceFile(path, CurrentText()); });
}
