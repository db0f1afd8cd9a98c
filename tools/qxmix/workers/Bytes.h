#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace qxmix {

/// Puts values one behind the other into bytes that the same build of the tool reads again.
class ByteWriter {
public:
    template <typename Value>
    ByteWriter& Put(const Value& value) {
        static_assert(std::is_trivially_copyable_v<Value>);
        char raw[sizeof(Value)];
        std::memcpy(raw, &value, sizeof(Value));
        bytes_.append(raw, sizeof(Value));
        return *this;
    }

    ByteWriter& PutText(const std::string& text) {
        Put(static_cast<std::uint32_t>(text.size()));
        bytes_ += text;
        return *this;
    }

    const std::string& Bytes() const { return bytes_; }

private:
    std::string bytes_;
};

/// Takes the values out again, in the same order.
class ByteReader {
public:
    explicit ByteReader(const std::string& bytes) : bytes_(bytes) {}

    /// @throw std::length_error when the bytes end before the value does.
    template <typename Value>
    Value Take() {
        static_assert(std::is_trivially_copyable_v<Value>);
        Value value;
        std::memcpy(&value, Next(sizeof(Value)), sizeof(Value));
        return value;
    }

    std::string TakeText() {
        const auto size = Take<std::uint32_t>();
        return std::string(Next(size), size);
    }

private:
    const char* Next(std::size_t size) {
        if (bytes_.size() - at_ < size) {
            throw std::length_error("message cut short");
        }
        const char* const start = bytes_.data() + at_;
        at_ += size;
        return start;
    }

    const std::string& bytes_;
    std::size_t at_ = 0;
};

}  // namespace qxmix
