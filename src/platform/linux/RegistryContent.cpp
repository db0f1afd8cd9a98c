#include "RegistryContent.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace {

std::uint64_t NextSerial() noexcept {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

}  // namespace

RegistryContent::RegistryContent() {
    keys_[KeyPath(kClassesRootName)];
    keys_[KeyPath(kLocalMachineName)];
}

RegistryContent RegistryContent::AtStart() {
    RegistryContent content;
    content.Create(KeyPath(kLocalMachineName) + u"\\SOFTWARE\\ATM\\ErrorCode");
    return content;
}

const RegistryKey* RegistryContent::Find(const KeyPath& path) const noexcept {
    const auto found = keys_.find(path);
    return found == keys_.end() ? nullptr : &found->second;
}

RegistryKey* RegistryContent::Find(const KeyPath& path) noexcept {
    const auto found = keys_.find(path);
    return found == keys_.end() ? nullptr : &found->second;
}

const RegistryValue* RegistryContent::FindValue(const KeyPath& path,
                                                const std::u16string& name) const {
    const RegistryKey* key = Find(path);
    if (key == nullptr) {
        return nullptr;
    }
    const auto found = key->values.find(name);
    return found == key->values.end() ? nullptr : &found->second;
}

RegistryKey& RegistryContent::Create(const KeyPath& path, bool* created) {
    KeyPath spelled = path;
    auto key = keys_.end();
    bool isNew = false;
    for (std::size_t end = 0; end != spelled.size();) {
        end = std::min(spelled.find(u'\\', end + 1), spelled.size());
        const KeyPath above = spelled.substr(0, end);
        key = keys_.find(above);
        isNew = key == keys_.end();
        if (isNew) {
            key = keys_.emplace(above, RegistryKey{NextSerial(), {}}).first;
        }
        // From here on the names so far are spelled as those of the key that was there first.
        spelled.replace(0, end, key->first);
    }
    if (created != nullptr) {
        *created = isNew;
    }
    return key->second;
}

bool RegistryContent::Delete(const KeyPath& path) {
    const auto first = keys_.find(path);
    if (first == keys_.end()) {
        return false;
    }
    auto last = first;
    while (last != keys_.end() && IsAtOrBelow(last->first, path)) {
        ++last;
    }
    if (!IsRoot(path)) {
        keys_.erase(first, last);
    } else {
        first->second.values.clear();
        keys_.erase(std::next(first), last);
    }
    return true;
}
