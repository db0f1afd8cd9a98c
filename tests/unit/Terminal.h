#pragma once

/// What a test sees of the terminal around the module: the registry value that failures leave, the
/// calls that the module made, and the trace lines.

#include "HostControl.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using Lines = std::vector<std::string>;

constexpr char kErrorCodeKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode";
constexpr char kTraceKey[] = "HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\CashDispenser";
constexpr char kMinimumKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM";

/// The bytes of the value "CDM", empty when there is none.
inline std::string RecordedCode() {
    char bytes[64];
    std::uint32_t size = sizeof(bytes);
    const std::int32_t result = QxmixRegistryGetValue(kErrorCodeKey, "CDM", nullptr, bytes, &size);
    return result == 0 ? std::string(bytes, size) : std::string();
}

inline void ClearRecordedCode() {
    QxmixRegistryDeleteValue(kErrorCodeKey, "CDM");
}

/// Begins and ends each test with the stand-in as it was loaded.
class TerminalTest : public testing::Test {
protected:
    TerminalTest() { QxmixReset(); }
    ~TerminalTest() override {
        QxmixReset();
        QxmixMemoryFreeAll();
    }
};

/// Hears the trace lines as long as it lives.
class TraceLines {
public:
    TraceLines() { QxmixSetTraceListener(Hear, &lines_); }
    ~TraceLines() { QxmixSetTraceListener(nullptr, nullptr); }
    TraceLines(const TraceLines&) = delete;
    TraceLines& operator=(const TraceLines&) = delete;

    const Lines& All() const { return lines_; }

private:
    static void Hear(void* lines, const char* line) { static_cast<Lines*>(lines)->push_back(line); }

    Lines lines_;
};

/// Writes down the calls of the module as long as it lives.
class CallLog {
public:
    CallLog() {
        QxmixResetCalls();
        QxmixLogCalls(1);
    }
    ~CallLog() { QxmixLogCalls(0); }
    CallLog(const CallLog&) = delete;
    CallLog& operator=(const CallLog&) = delete;

    /// One line per call, as in HostControl.h.
    static Lines All() {
        Lines lines;
        char text[1200];
        for (std::uint32_t index = 0; QxmixGetLoggedCallText(index, text, sizeof(text)) != 0;
             ++index) {
            lines.push_back(text);
        }
        return lines;
    }

    /// The number of logged calls that begin with a text.
    static std::size_t CountOf(const std::string& beginning) {
        std::size_t count = 0;
        for (const std::string& line : All()) {
            count += line.compare(0, beginning.size(), beginning) == 0 ? 1 : 0;
        }
        return count;
    }
};

/// Writes down calls and trace lines, in the order in which they came, as long as it lives.
class Timeline {
public:
    Timeline() { QxmixSetTraceListener(Hear, this); }
    ~Timeline() { QxmixSetTraceListener(nullptr, nullptr); }
    Timeline(const Timeline&) = delete;
    Timeline& operator=(const Timeline&) = delete;

    /// Calls by the function's name, lines as they are.
    const Lines& All() {
        TakeCalls();
        return events_;
    }

private:
    static void Hear(void* timeline, const char* line) {
        auto& self = *static_cast<Timeline*>(timeline);
        self.TakeCalls();
        self.events_.push_back(line);
    }

    void TakeCalls() {
        const Lines calls = CallLog::All();
        for (; taken_ < calls.size(); ++taken_) {
            events_.push_back(calls[taken_].substr(0, calls[taken_].find('(')));
        }
    }

    CallLog log_;
    std::size_t taken_ = 0;
    Lines events_;
};
