// A registry file: refused with a line, or read, written and read again; and whatever it holds is
// the configuration that the module reads when it is created.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "FuzzInput.h"
#include "HostControl.h"
#include "ModuleUnderTest.h"

namespace {

void Expect(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

std::string WriteText() {
    std::size_t size = 0;
    Expect(QxmixRegistrySaveText(nullptr, 0, &size) == kQxmixErrorMoreData, "no size told");
    std::string text(size, '\0');
    Expect(QxmixRegistrySaveText(text.data(), text.size(), &size) == 0, "cannot be written");
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    QxmixRegistryReset();
    const std::string before = WriteText();
    QxmixTextError error{};
    if (QxmixRegistryLoadText(bytes, size, &error) != 0) {
        Expect(error.message[0] != '\0', "refused without a word");
        Expect(WriteText() == before, "a refused file has changed the content");
        return 0;
    }
    const std::string text = WriteText();
    Expect(QxmixRegistryLoadText(text.data(), text.size(), &error) == 0, "not read back");
    Expect(WriteText() == text, "written otherwise the second time");
    property::ModuleUnderTest module;
    return 0;
}
