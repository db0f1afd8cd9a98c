#pragma once

#include "Records.h"

#include <cstdio>

/// What stands in ulRemainder before a calculation.
constexpr std::uint32_t kUntouched = 0xDEADBEEF;

/// One case of a vector file: a request, and what is expected of it.
struct VectorCase {
    char name[160];
    unsigned line;  ///< where it starts in its file

    MixRequest request;
    std::uint32_t minimum;
    std::uint16_t firstMix;
    std::uint16_t lastMix;

    std::int32_t returned;
    std::uint32_t notes[kMaxCashUnits];
    std::uint32_t remainder;
    std::uint32_t amount;
    char code[8];  ///< empty: none
};

/// Reads a file case by case. Only C's input functions, which every checker knows.
class VectorFile {
public:
    explicit VectorFile(const char* path) noexcept;
    ~VectorFile();
    VectorFile(const VectorFile&) = delete;
    VectorFile& operator=(const VectorFile&) = delete;

    bool IsOpen() const noexcept { return file_ != nullptr; }

    /// @return whether there was another case.
    bool ReadCase(VectorCase& next) noexcept;

    /// The number of the first line that was not understood, or 0.
    unsigned WrongLine() const noexcept { return wrongLine_; }

private:
    bool NextLine() noexcept;

    std::FILE* file_;
    char text_[400];
    unsigned line_ = 0;
    unsigned wrongLine_ = 0;
};
