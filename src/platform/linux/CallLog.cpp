/// The host's side of call control: counts, failures and the log of calls.

#include "CallControl.h"
#include "HostControl.h"
#include "TextEncoding.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr const char* kFunctionNames[] = {
    "RegOpenKeyExW", "RegCreateKeyExW", "RegQueryValueExW",  "RegSetValueExW",
    "RegCloseKey",   "EventModify",     "WFMAllocateBuffer", "WFMAllocateMore",
};

bool IsOneFunction(QxmixFunction function) noexcept {
    return static_cast<unsigned>(function) < unsigned{kQxmixAnyFunction};
}

/// Copies text with its terminator, cut between characters to the room there is.
void CopyCut(std::string_view text, char* room, std::size_t capacity) noexcept {
    const std::string_view cut = CutUtf8(text, capacity - 1);
    std::memcpy(room, cut.data(), cut.size());
    room[cut.size()] = '\0';
}

/// The arguments of a call, each preceded by ", ".
class Arguments {
public:
    void AddText(const std::string& text) { written_ += ", \"" + text + "\""; }

    void AddNumber(const char* name, std::uint32_t number) {
        written_ += std::string(", ") + name + " " + std::to_string(number);
    }

    void AddNonzero(const char* name, std::uint32_t number) {
        if (number != 0) {
            AddNumber(name, number);
        }
    }

    void AddAccess(std::uint32_t access) {
        char hex[16];
        static_cast<void>(std::snprintf(hex, sizeof(hex), "0x%X", access));
        written_ += std::string(", access ") + hex;
    }

    std::string InBrackets() const { return "(" + written_.substr(2) + ")"; }

private:
    std::string written_;
};

Arguments ArgumentsOf(const ModuleCall& call) {
    Arguments arguments;
    switch (call.function) {
    case kQxmixRegOpenKeyExW:
    case kQxmixRegCreateKeyExW:
        arguments.AddText(call.key);
        arguments.AddAccess(call.access);
        arguments.AddNonzero("options", call.options);
        break;
    case kQxmixRegQueryValueExW:
    case kQxmixRegSetValueExW:
        arguments.AddText(call.key);
        arguments.AddText(call.valueName);
        arguments.AddNumber("type", call.type);
        arguments.AddNumber("size", call.size);
        break;
    case kQxmixRegCloseKey:
        arguments.AddText(call.key);
        break;
    case kQxmixEventModify:
        arguments.AddNumber("operation", call.options);
        break;
    default:
        arguments.AddNumber("size", call.size);
        arguments.AddNonzero("flags", call.options);
        break;
    }
    return arguments;
}

std::string Describe(const ModuleCall& call) {
    return kFunctionNames[call.function] + ArgumentsOf(call).InBrackets() + " = " +
           std::to_string(call.result) + (call.forced ? " forced" : "");
}

/// Finds a logged call and hands it to the action.
template <typename Action>
int WithLogged(std::uint32_t index, Action action) noexcept {
    return Guarded(0, [&] {
        ModuleCall call(kQxmixAnyFunction);
        if (!CallControl::Instance().Logged(index, &call)) {
            return 0;
        }
        action(call);
        return 1;
    });
}

void OrderFailure(QxmixFunction function, std::uint32_t n, bool onward, std::int32_t code) {
    if (IsOneFunction(function) || function == kQxmixAnyFunction) {
        CallControl::Instance().FailCall(function, n, onward, code);
    }
}

}  // namespace

const char* QxmixFunctionName(QxmixFunction function) {
    return IsOneFunction(function) ? kFunctionNames[function] : "";
}

std::uint32_t QxmixCallCount(QxmixFunction function) {
    const bool known = IsOneFunction(function) || function == kQxmixAnyFunction;
    return known ? CallControl::Instance().Count(function) : 0;
}

void QxmixResetCalls() {
    CallControl::Instance().Reset();
}

void QxmixFailCall(QxmixFunction function, std::uint32_t n, std::int32_t code) {
    OrderFailure(function, n, false, code);
}

void QxmixFailCallsFrom(QxmixFunction function, std::uint32_t n, std::int32_t code) {
    OrderFailure(function, n, true, code);
}

void QxmixLogCalls(int on) {
    CallControl::Instance().SetLogging(on != 0);
}

std::uint32_t QxmixLoggedCalls() {
    return CallControl::Instance().LogSize();
}

int QxmixGetLoggedCall(std::uint32_t index, QxmixCall* call) {
    return WithLogged(index, [call](const ModuleCall& logged) {
        *call = {};
        call->function = logged.function;
        CopyCut(logged.key, call->key, sizeof(call->key));
        CopyCut(logged.valueName, call->valueName, sizeof(call->valueName));
        call->access = logged.access;
        call->type = logged.type;
        call->size = logged.size;
        call->options = logged.options;
        call->result = logged.result;
        call->forced = logged.forced ? 1 : 0;
    });
}

int QxmixGetLoggedCallText(std::uint32_t index, char* text, std::size_t capacity) {
    if (capacity == 0) {
        return 0;
    }
    return WithLogged(index,
                      [=](const ModuleCall& logged) { CopyCut(Describe(logged), text, capacity); });
}
