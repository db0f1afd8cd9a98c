// A dispenser file, or a dispenser written inline: refused in one line, or read as what it would be
// written as.
#include <cstdio>
#include <cstdlib>

#include "FuzzInput.h"
#include "dispenser/DispenserJson.h"
#include "dispenser/DispenserReader.h"
#include "dispenser/InlineDispenser.h"
#include "errors/Errors.h"
#include "json/Json.h"
#include "json/JsonText.h"

namespace {

void ExpectReadBack(const qxmix::Dispenser& dispenser) {
    const qxmix::Json written = qxmix::DispenserJson(dispenser);
    if (qxmix::DispenserJson(qxmix::ReadDispenser(written, qxmix::Place("again"))) != written) {
        std::fprintf(stderr, "read back otherwise: %s\n", written.dump().c_str());
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    try {
        const bool isInline = qxmix::IsInlineDispenser(text);
        ExpectReadBack(isInline
                           ? qxmix::ReadInlineDispenser(text)
                           : qxmix::ReadDispenser(qxmix::ParseJson(text, "f"), qxmix::Place("f")));
    } catch (const qxmix::InputError&) {
        return 0;  // the only way to be refused; everything else ends the process
    }
    return 0;
}
