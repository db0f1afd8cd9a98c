#include "RegistryText.h"

#include "HostControl.h"
#include "RegistryLines.h"
#include "RegistryValueReader.h"

#include <optional>
#include <utility>

namespace {

class Reader {
public:
    explicit Reader(std::string_view bytes) : lines_(bytes) {}

    RegistryContent Read() {
        ReadHeader();
        while (lines_.Next()) {
            ReadLine();
        }
        return std::move(content_);
    }

private:
    enum class Above { NoKey, Key, DeletedKey };

    void ReadHeader() {
        lines_.Next();
        hasNarrowText_ = lines_.TakeIf(u"REGEDIT4");
        const bool known = hasNarrowText_ || lines_.TakeIf(u"Windows Registry Editor Version 5.00");
        lines_.SkipBlanks();
        if (!known || !lines_.Rest().empty()) {
            lines_.Fail("the first line is neither REGEDIT4 nor "
                        "Windows Registry Editor Version 5.00");
        }
    }

    void ReadLine() {
        if (lines_.AtEndOrComment()) {
            return;
        }
        if (lines_.TakeIf(u"[")) {
            ReadKeyLine();
        } else if (lines_.Peek() == u'"' || lines_.Peek() == u'@') {
            ReadValueLine();
        } else {
            lines_.Fail("neither a key, a value nor a comment");
        }
    }

    void ReadKeyLine() {
        const bool deletes = lines_.TakeIf(u"-");
        // The last bracket ends the name, since a name may hold brackets.
        const std::u16string_view rest = lines_.Rest();
        const std::size_t length = rest.rfind(u']');
        if (length == std::u16string_view::npos) {
            lines_.Fail("key without closing bracket");
        }
        lines_.Skip(length + 1);
        if (!lines_.AtEndOrComment()) {
            lines_.Fail("something follows the closing bracket of the key");
        }
        ReadPath(rest.substr(0, length));
        if (deletes) {
            content_.Delete(key_);
        } else {
            content_.Create(key_);
        }
        above_ = deletes ? Above::DeletedKey : Above::Key;
    }

    void ReadPath(std::u16string_view text) {
        if (ReadFullPath(text.substr(0, text.find(u'\\')), &key_) != 0) {
            lines_.Fail("the root of the key is neither HKEY_LOCAL_MACHINE nor HKEY_CLASSES_ROOT");
        }
        switch (ReadFullPath(text, &key_)) {
        case 0:
            return;
        case kQxmixErrorBadPathName:
            lines_.Fail("two backslashes after the root of the key");
        default:
            lines_.Fail("the name of a key has more than 255 characters");
        }
    }

    void ReadValueLine() {
        if (above_ == Above::NoKey) {
            lines_.Fail("value without a key line above it");
        }
        if (above_ == Above::DeletedKey) {
            lines_.Fail("value below a key line that removes the key");
        }
        std::u16string name;
        if (!lines_.TakeIf(u"@")) {
            name = ReadQuotedText(&lines_, "value name");
        }
        if (name.size() > kMaxRegistryName) {
            lines_.Fail("the name of a value has more than 255 characters");
        }
        lines_.SkipBlanks();
        if (!lines_.TakeIf(u"=")) {
            lines_.Fail("'=' expected after the name of the value");
        }
        lines_.SkipBlanks();
        std::optional<RegistryValue> value = ReadValue(&lines_, hasNarrowText_);
        RegistryValues& values = content_.Find(key_)->values;
        if (value) {
            values[std::move(name)] = *std::move(value);
        } else {
            values.erase(name);
        }
    }

    RegistryLines lines_;
    RegistryContent content_;
    bool hasNarrowText_ = false;
    Above above_ = Above::NoKey;
    KeyPath key_;
};

}  // namespace

RegistryContent ReadRegistryText(std::string_view bytes) {
    return Reader(bytes).Read();
}
