#include "RegistryName.h"

#include "HostControl.h"

#include <algorithm>

namespace {

/// The character as it counts in a path: the backslash before all others, so that the keys below
/// a key follow it at once.
char16_t FoldInPath(char16_t character) noexcept {
    return character == u'\\' ? u'\0' : FoldCase(character);
}

template <char16_t (*Fold)(char16_t) noexcept>
bool IsLess(const std::u16string& left, const std::u16string& right) noexcept {
    const std::size_t both = std::min(left.size(), right.size());
    for (std::size_t k = 0; k < both; ++k) {
        if (left[k] == right[k]) {
            continue;  // nearly always: callers spell their keys in one way
        }
        const char16_t leftFolded = Fold(left[k]);
        const char16_t rightFolded = Fold(right[k]);
        if (leftFolded != rightFolded) {
            return leftFolded < rightFolded;
        }
    }
    return left.size() < right.size();
}

bool SameCharacter(char16_t left, char16_t right) noexcept {
    return FoldCase(left) == FoldCase(right);
}

}  // namespace

char16_t FoldCase(char16_t character) noexcept {
    const bool ascii = character >= u'a' && character <= u'z';
    const bool latin = character >= 0xE0 && character <= 0xFE && character != 0xF7;
    if (ascii || latin) {
        return static_cast<char16_t>(character - 0x20);
    }
    return character == 0xFF ? char16_t{0x178} : character;
}

bool NameLess::operator()(const std::u16string& left, const std::u16string& right) const noexcept {
    return IsLess<FoldCase>(left, right);
}

bool PathLess::operator()(const KeyPath& left, const KeyPath& right) const noexcept {
    return IsLess<FoldInPath>(left, right);
}

bool IsAtOrBelow(const KeyPath& path, const KeyPath& above) noexcept {
    return path.size() >= above.size() &&
           std::equal(above.begin(), above.end(), path.begin(), SameCharacter) &&
           (path.size() == above.size() || path[above.size()] == u'\\');
}

bool IsRoot(const KeyPath& path) noexcept {
    return path.find(u'\\') == KeyPath::npos;
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
            *path += u'\\';
            *path += subKey.substr(0, length);
        }
        subKey.remove_prefix(std::min(length + 1, subKey.size()));
    }
    return 0;
}

std::int32_t ReadFullPath(std::u16string_view text, KeyPath* path) {
    const std::size_t length = std::min(text.find(u'\\'), text.size());
    const std::u16string_view written = text.substr(0, length);
    path->clear();
    for (const std::u16string_view root : {kClassesRootName, kLocalMachineName}) {
        if (std::equal(root.begin(), root.end(), written.begin(), written.end(), SameCharacter)) {
            *path = root;
        }
    }
    if (path->empty()) {
        return kQxmixErrorInvalidParameter;
    }
    return AppendSubKey(text.substr(std::min(length + 1, text.size())), path);
}
