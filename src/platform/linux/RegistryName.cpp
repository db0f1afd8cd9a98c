#include "RegistryName.h"

#include "HostControl.h"

#include <algorithm>

namespace {

bool CharacterLess(char16_t left, char16_t right) noexcept {
    return FoldCase(left) < FoldCase(right);
}

bool SameName(const std::u16string& left, const std::u16string& right) noexcept {
    const NameLess less;
    return !less(left, right) && !less(right, left);
}

}  // namespace

const char16_t kClassesRootName[] = u"HKEY_CLASSES_ROOT";
const char16_t kLocalMachineName[] = u"HKEY_LOCAL_MACHINE";

char16_t FoldCase(char16_t character) noexcept {
    const bool ascii = character >= u'a' && character <= u'z';
    const bool latin = character >= 0xE0 && character <= 0xFE && character != 0xF7;
    if (ascii || latin) {
        return static_cast<char16_t>(character - 0x20);
    }
    return character == 0xFF ? char16_t{0x178} : character;
}

bool NameLess::operator()(const std::u16string& left, const std::u16string& right) const noexcept {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        CharacterLess);
}

bool PathLess::operator()(const KeyPath& left, const KeyPath& right) const noexcept {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        NameLess());
}

bool IsAtOrBelow(const KeyPath& path, const KeyPath& above) noexcept {
    return path.size() >= above.size() &&
           std::equal(above.begin(), above.end(), path.begin(), SameName);
}

std::int32_t AppendSubKey(std::u16string_view subKey, KeyPath* path) {
    if (!subKey.empty() && subKey.front() == u'\\') {
        return kQxmixErrorBadPathName;
    }
    while (!subKey.empty()) {
        const std::size_t length = std::min(subKey.find(u'\\'), subKey.size());
        if (length > kMaxRegistryName) {
            return kQxmixErrorInvalidParameter;
        }
        if (length != 0) {
            path->emplace_back(subKey.substr(0, length));
        }
        subKey.remove_prefix(std::min(length + 1, subKey.size()));
    }
    return 0;
}

std::int32_t ReadFullPath(std::u16string_view text, KeyPath* path) {
    const std::size_t length = std::min(text.find(u'\\'), text.size());
    const std::u16string written(text.substr(0, length));
    path->clear();
    for (const char16_t* root : {kClassesRootName, kLocalMachineName}) {
        if (SameName(written, root)) {
            path->emplace_back(root);
        }
    }
    if (path->empty()) {
        return kQxmixErrorInvalidParameter;
    }
    return AppendSubKey(text.substr(std::min(length + 1, text.size())), path);
}

std::u16string PathText(const KeyPath& path) {
    std::u16string text;
    for (const std::u16string& name : path) {
        if (!text.empty()) {
            text += u'\\';
        }
        text += name;
    }
    return text;
}
