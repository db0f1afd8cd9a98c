#include "RegistryContent.h"

#include <atomic>
#include <iterator>

namespace {

std::uint64_t NextSerial() noexcept {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

}  // namespace

RegistryContent::RegistryContent() {
    keys_[KeyPath{kClassesRootName}];
    keys_[KeyPath{kLocalMachineName}];
}

RegistryContent RegistryContent::AtStart() {
    RegistryContent content;
    content.Create({kLocalMachineName, u"SOFTWARE", u"ATM", u"ErrorCode"});
    return content;
}

const RegistryKey* RegistryContent::Find(const KeyPath& path) const {
    const auto found = keys_.find(path);
    return found == keys_.end() ? nullptr : &found->second;
}

RegistryKey* RegistryContent::Find(const KeyPath& path) {
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
    KeyPath walked;
    auto key = keys_.end();
    bool isNew = false;
    for (const std::u16string& name : path) {
        walked.push_back(name);
        key = keys_.find(walked);
        isNew = key == keys_.end();
        if (isNew) {
            key = keys_.emplace(walked, RegistryKey{NextSerial(), {}}).first;
        }
        // From here on the names above are spelled as the keys that were there first.
        walked = key->first;
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
    if (path.size() > 1) {
        keys_.erase(first, last);
    } else {
        first->second.values.clear();
        keys_.erase(std::next(first), last);
    }
    return true;
}
