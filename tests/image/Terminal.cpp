#include "Terminal.h"

#include <cstdio>

namespace emulation {

namespace {

constexpr std::uint32_t kFound = 0;
constexpr std::uint32_t kNotFound = 2;
constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kMoreThere = 234;

std::string Hex(std::uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%x", static_cast<unsigned>(value));
    return text;
}

std::string RootName(std::uint32_t root) {
    return root == Terminal::kClassesRoot    ? "HKCR"
           : root == Terminal::kLocalMachine ? "HKLM"
                                             : Hex(root);
}

}  // namespace

Terminal::Terminal() {
    registry[ErrorKey()];
}

std::map<std::string, TrappedFunction> Terminal::Functions() {
    constexpr Convention kCdecl = Convention::Cdecl;
    constexpr Convention kStdcall = Convention::Stdcall;
    const auto bound = [this](std::uint32_t (Terminal::*function)(const Arguments&)) {
        return
            [this, function](const Arguments& arguments) { return (this->*function)(arguments); };
    };
    return {
        {"RegOpenKeyExW", {kStdcall, 5, bound(&Terminal::OpenKey)}},
        {"RegCreateKeyExW", {kStdcall, 9, bound(&Terminal::CreateKey)}},
        {"RegQueryValueExW", {kStdcall, 6, bound(&Terminal::QueryValue)}},
        {"RegSetValueExW", {kStdcall, 6, bound(&Terminal::SetValue)}},
        {"RegCloseKey", {kStdcall, 1, bound(&Terminal::CloseKey)}},
        {"EventModify",
         {kStdcall, 2, [this](const Arguments& a) { return ModifyEvent(a[0], a[1]); }}},
        {"SetEvent", {kStdcall, 1, [this](const Arguments& a) { return ModifyEvent(a[0], 3); }}},
        {"WFMAllocateBuffer", {kStdcall, 3, bound(&Terminal::AllocateBuffer)}},
        {"WFMAllocateMore", {kStdcall, 3, bound(&Terminal::AllocateMore)}},
        {"malloc", {kCdecl, 1, [this](const Arguments& a) { return Allocate(a[0]); }}},
        {"free", {kCdecl, 1, [this](const Arguments& a) { return Release(a[0]); }}},
        {"memcpy", {kCdecl, 3, bound(&Terminal::Copy)}},
        {"memset", {kCdecl, 3, bound(&Terminal::Fill)}},
        {"memcmp", {kCdecl, 3, bound(&Terminal::Compare)}},
        {"strlen", {kCdecl, 1, [this](const Arguments& a) { return Length(a[0]); }}},
        {"_purecall",
         {kCdecl, 0,
          [this](const Arguments&) {
              complaint = "pure call";
              return 0U;
          }}},
    };
}

void Terminal::RefuseCall(unsigned number, const std::string& function) {
    refusedCall_ = number;
    refusedFunction_ = function;
}

bool Terminal::IsRefused(const std::string& function) {
    if (refusedCall_ == 0 || (!refusedFunction_.empty() && refusedFunction_ != function)) {
        return false;
    }
    --refusedCall_;
    return refusedCall_ == 0;
}

std::string Terminal::ErrorCode() const {
    const auto key = registry.find(ErrorKey());
    if (key == registry.end() || key->second.count("CDM") == 0) {
        return "";
    }
    const Bytes& content = key->second.at("CDM").content;
    return std::string(content.begin(), content.end());
}

void Terminal::ForgetErrorCode() {
    const auto key = registry.find(ErrorKey());
    if (key != registry.end()) {
        key->second.erase("CDM");
    }
}

Terminal::Value Terminal::WideText(const std::string& text) {
    Value value{kText, {}};
    for (const char character : text + '\0') {
        value.content.push_back(static_cast<std::uint8_t>(character));
        value.content.push_back(0);
    }
    return value;
}

std::string Terminal::WideTextAt(std::uint32_t address) {
    std::string text;
    for (;; address += 2) {
        const Bytes character = machine_->ReadForModule(address, 2);
        if (character[1] != 0) {
            complaint = "a character above 255";
        }
        if (character[0] == 0) {
            return text;
        }
        text += static_cast<char>(character[0]);
    }
}

std::uint32_t Terminal::Opened(const Key& key, std::uint32_t address) {
    const std::uint32_t handle = nextHandle_;
    nextHandle_ += 4;
    handles_[handle] = key;
    openKeys.insert(handle);
    machine_->WriteWordForModule(address, handle);
    return kFound;
}

std::map<std::string, Terminal::Value>* Terminal::ValuesOf(std::uint32_t handle) {
    if (openKeys.count(handle) == 0) {
        complaint = "a key that is not open";
        return nullptr;
    }
    return &registry[handles_[handle]];
}

/// Older systems refuse a call without a place for each output, also for those nobody reads.
void Terminal::ExpectPlace(std::uint32_t address) {
    if (address == 0) {
        complaint = "no place for an output";
    }
}

std::uint32_t Terminal::OpenKey(const Arguments& arguments) {
    const Key key{arguments[0], WideTextAt(arguments[1])};
    Note("open " + RootName(key.first) + " " + key.second + " options " + Hex(arguments[2]) +
         " access " + Hex(arguments[3]));
    if (IsRefused("RegOpenKeyExW")) {
        return kAccessDenied;
    }
    return registry.count(key) != 0 ? Opened(key, arguments[4]) : kNotFound;
}

std::uint32_t Terminal::CreateKey(const Arguments& arguments) {
    const Key key{arguments[0], WideTextAt(arguments[1])};
    const std::string keyClass = arguments[3] != 0 ? WideTextAt(arguments[3]) : "none";
    Note("create " + RootName(key.first) + " " + key.second + " class '" + keyClass + "' options " +
         Hex(arguments[4]) + " access " + Hex(arguments[5]) + " security " + Hex(arguments[6]));
    if (arguments[2] != 0) {
        complaint = "a reserved argument that is not 0";
    }
    ExpectPlace(arguments[8]);
    if (IsRefused("RegCreateKeyExW")) {
        return kAccessDenied;
    }
    const std::uint32_t isNew = registry.count(key) == 0 ? 1 : 2;
    registry[key];
    machine_->WriteWordForModule(arguments[8], isNew);
    return Opened(key, arguments[7]);
}

std::uint32_t Terminal::QueryValue(const Arguments& arguments) {
    const std::string name = WideTextAt(arguments[1]);
    const std::uint32_t room = machine_->ReadWordForModule(arguments[5]);
    Note("query " + name + " room " + std::to_string(room));
    ExpectPlace(arguments[3]);
    const auto* const values = ValuesOf(arguments[0]);
    if (values == nullptr) {
        return kInvalidHandle;
    }
    if (IsRefused("RegQueryValueExW")) {
        return kAccessDenied;
    }
    const auto found = values->find(name);
    if (found == values->end()) {
        return kNotFound;
    }
    const Bytes& content = found->second.content;
    machine_->WriteWordForModule(arguments[5], static_cast<std::uint32_t>(content.size()));
    machine_->WriteWordForModule(arguments[3], found->second.type);
    if (content.size() > room) {
        return kMoreThere;
    }
    machine_->WriteForModule(arguments[4], content);
    return kFound;
}

std::uint32_t Terminal::SetValue(const Arguments& arguments) {
    const std::string name = WideTextAt(arguments[1]);
    const Value value{arguments[3], machine_->ReadForModule(arguments[4], arguments[5])};
    Note("set " + name + " type " + std::to_string(value.type) + " to " +
         std::string(value.content.begin(), value.content.end()));
    auto* const values = ValuesOf(arguments[0]);
    if (values == nullptr) {
        return kInvalidHandle;
    }
    if (IsRefused("RegSetValueExW")) {
        return kAccessDenied;
    }
    (*values)[name] = value;
    return kFound;
}

std::uint32_t Terminal::CloseKey(const Arguments& arguments) {
    Note("close");
    if (openKeys.erase(arguments[0]) == 0) {
        complaint = "a key closed that is not open";
        return kInvalidHandle;
    }
    return IsRefused("RegCloseKey") ? kAccessDenied : kFound;
}

std::uint32_t Terminal::ModifyEvent(std::uint32_t event, std::uint32_t operation) {
    Note("event " + Hex(event) + " operation " + std::to_string(operation));
    return IsRefused("EventModify") ? 0 : 1;
}

std::uint32_t Terminal::AllocateBuffer(const Arguments& arguments) {
    Note("buffer " + std::to_string(arguments[0]) + " flags " + std::to_string(arguments[1]));
    if (IsRefused("WFMAllocateBuffer")) {
        return kManagerOutOfMemory;
    }
    const std::uint32_t block =
        machine_->Memory().Allocate(arguments[0], Rights::ReadWrite, blockShift);
    constexpr std::uint32_t kCleared = 2;
    if ((arguments[1] & kCleared) != 0) {
        machine_->WriteForModule(block, Bytes(arguments[0]));
    }
    lists_[block] = block;
    machine_->WriteWordForModule(arguments[2], block);
    return kFound;
}

std::uint32_t Terminal::AllocateMore(const Arguments& arguments) {
    Note("more " + std::to_string(arguments[0]));
    if (lists_.count(arguments[1]) == 0) {
        complaint = "memory linked to no buffer";
    }
    if (IsRefused("WFMAllocateMore")) {
        return kManagerOutOfMemory;
    }
    const std::uint32_t block =
        machine_->Memory().Allocate(arguments[0], Rights::ReadWrite, blockShift);
    lists_[block] = arguments[1];
    machine_->WriteWordForModule(arguments[2], block);
    return kFound;
}

std::uint32_t Terminal::Allocate(std::uint32_t size) {
    Note("malloc " + std::to_string(size));
    return IsRefused("malloc") ? 0 : machine_->Memory().Allocate(size, Rights::ReadWrite);
}

std::uint32_t Terminal::Release(std::uint32_t address) {
    Note("free");
    if (!machine_->Memory().Free(address)) {
        complaint = "memory freed that was not allocated";
    }
    return 0;
}

std::uint32_t Terminal::Copy(const Arguments& arguments) {
    const std::uint32_t distance = arguments[0] - arguments[1];
    if (distance < arguments[2] || 0U - distance < arguments[2]) {
        complaint = "a copy onto itself";
    }
    machine_->WriteForModule(arguments[0], machine_->ReadForModule(arguments[1], arguments[2]));
    machine_->CountWork((arguments[2] + 3) / 4);
    return arguments[0];
}

std::uint32_t Terminal::Fill(const Arguments& arguments) {
    machine_->WriteForModule(arguments[0],
                             Bytes(arguments[2], static_cast<std::uint8_t>(arguments[1])));
    machine_->CountWork((arguments[2] + 3) / 4);
    return arguments[0];
}

std::uint32_t Terminal::Compare(const Arguments& arguments) {
    const Bytes left = machine_->ReadForModule(arguments[0], arguments[2]);
    const Bytes right = machine_->ReadForModule(arguments[1], arguments[2]);
    return left == right ? 0 : (left < right ? 0xFFFFFFFF : 1);
}

std::uint32_t Terminal::Length(std::uint32_t text) {
    std::uint32_t length = 0;
    while (machine_->ReadForModule(text + length, 1)[0] != 0) {
        ++length;
    }
    return length;
}

}  // namespace emulation
