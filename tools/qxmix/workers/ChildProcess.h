#pragma once

#include "Channel.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace qxmix {

/// A child of the tool that runs one function and is connected with it by a channel.
///
/// It has no standard input, writes its standard output to the tool's standard error, takes no
/// notice of Ctrl-C, and ends when the tool does.
class ChildProcess {
public:
    /// @param body  what the child runs, with its end of the channel.
    /// @throw WorkError when the system has no process for it.
    explicit ChildProcess(const std::function<void(Channel&)>& body);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    Channel& Connection() { return channel_; }

    /// Processor time that the child has used so far; 0 when it is gone.
    std::chrono::nanoseconds WorkingTime() const;

    /// Ends the child at once.
    void Kill();

    /// Waits for the end of a child that closed its channel.
    ///
    /// @return how it ended: "signal 11 (Segmentation fault)" or "exit status 1".
    std::string WaitForEnd();

private:
    ProcessHandle process_ = kNoProcess;
    Channel channel_;
};

}  // namespace qxmix
