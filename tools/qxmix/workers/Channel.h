#pragma once

#include "SystemHandles.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

using Clock = std::chrono::steady_clock;

/// One message between the tool and its worker.
struct Message {
    std::uint8_t kind = 0;  ///< see WorkerMessages.h
    std::string bytes;
};

/// One end of a two-way stream of messages.
class Channel {
public:
    /// @param end  what the system connected; closed with the channel.
    explicit Channel(ChannelEnd end) : end_(end) {}
    Channel(Channel&& other) noexcept;
    Channel& operator=(Channel&& other) noexcept;
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel();

    /// Sends a message whole.
    ///
    /// @return false when the other end is gone.
    bool Send(const Message& message);

    enum class State {
        Received,  ///< the message is there
        Waiting,   ///< the time is over before a message was whole
        Closed     ///< the other end is gone
    };

    /// Waits for the next message.
    ///
    /// @param until  when to stop waiting; none: never.
    /// @throw Interruption when Ctrl-C was pressed (see Interrupt.h).
    State Receive(Message& message, std::optional<Clock::time_point> until);

    /// Becomes readable when something came or the other end is gone.
    ChannelEnd Descriptor() const { return end_; }

private:
    bool TakeWhole(Message& message);

    // The system's part.
    bool WriteAll(const std::string& bytes);
    State ReadSome(std::optional<Clock::time_point> until);

    ChannelEnd end_;
    std::string received_;
    std::size_t taken_ = 0;  // bytes of received_ that belong to messages already handed out
};

}  // namespace qxmix
