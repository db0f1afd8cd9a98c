#pragma once

#include "Machine.h"

#include <set>

namespace emulation {

/// The terminal that an emulated module runs in: its registry, events, memory and XFS manager.
///
/// It writes down what it is asked for, watches over handles and blocks, and can refuse any call.
class Terminal {
public:
    /// Result of a refused call of a registry function and of the XFS manager.
    static constexpr std::uint32_t kAccessDenied = 5;
    static constexpr std::uint32_t kManagerOutOfMemory = 0xFFFFFFEF;  // -17

    static constexpr std::uint32_t kClassesRoot = 0x80000000;
    static constexpr std::uint32_t kLocalMachine = 0x80000002;
    static constexpr std::uint32_t kText = 1;

    struct Value {
        std::uint32_t type;
        Bytes content;
    };
    using Key = std::pair<std::uint32_t, std::string>;  ///< root and path, as passed

    /// A terminal with the key that error codes go to.
    Terminal();

    /// The functions that a library may import.
    std::map<std::string, TrappedFunction> Functions();

    /// Attaches the machine whose memory is handed out.
    void Serve(Machine& machine) { machine_ = &machine; }

    /// Refuses the n-th next call, counted from 1, of any function or of one; 0: none.
    void RefuseCall(unsigned number, const std::string& function = "");

    std::map<Key, std::map<std::string, Value>> registry;
    std::vector<std::string> calls;  ///< what was asked for, in order
    std::set<std::uint32_t> openKeys;
    unsigned blockShift = 0;  ///< how far the manager's blocks lie behind an aligned address
    std::string complaint;    ///< a call that no system would take; empty when there was none

    /// The five bytes of the last error code; empty when there is none.
    std::string ErrorCode() const;
    void ForgetErrorCode();

    /// The key that error codes go to, and the one of the module's settings.
    static Key ErrorKey() { return {kLocalMachine, "SOFTWARE\\ATM\\ErrorCode"}; }
    static Key SettingsKey() { return {kLocalMachine, "SOFTWARE\\ATM\\DevInfo\\CDM\\"}; }
    static Key TraceKey() {
        return {kClassesRoot, "WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser\\"};
    }

    /// Text as the registry keeps it: 16-bit characters and an end.
    static Value WideText(const std::string& text);

private:
    using Arguments = std::vector<std::uint32_t>;

    std::uint32_t OpenKey(const Arguments& arguments);
    std::uint32_t CreateKey(const Arguments& arguments);
    std::uint32_t QueryValue(const Arguments& arguments);
    std::uint32_t SetValue(const Arguments& arguments);
    std::uint32_t CloseKey(const Arguments& arguments);
    std::uint32_t ModifyEvent(std::uint32_t event, std::uint32_t operation);
    std::uint32_t AllocateBuffer(const Arguments& arguments);
    std::uint32_t AllocateMore(const Arguments& arguments);
    std::uint32_t Allocate(std::uint32_t size);
    std::uint32_t Release(std::uint32_t address);
    std::uint32_t Copy(const Arguments& arguments);
    std::uint32_t Fill(const Arguments& arguments);
    std::uint32_t Compare(const Arguments& arguments);
    std::uint32_t Length(std::uint32_t text);

    void ExpectPlace(std::uint32_t address);
    bool IsRefused(const std::string& function);
    void Note(const std::string& call) { calls.push_back(call); }
    std::string WideTextAt(std::uint32_t address);
    std::uint32_t Opened(const Key& key, std::uint32_t address);
    std::map<std::string, Value>* ValuesOf(std::uint32_t handle);

    Machine* machine_ = nullptr;
    std::map<std::uint32_t, Key> handles_;
    std::map<std::uint32_t, std::uint32_t> lists_;  ///< linked block, its list
    std::uint32_t nextHandle_ = 0x1234;
    unsigned refusedCall_ = 0;
    std::string refusedFunction_;
};

}  // namespace emulation
