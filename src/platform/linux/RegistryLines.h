#pragma once

#include "RegistryText.h"

#include <string>
#include <string_view>
#include <vector>

/// The lines of a registry file, and a place in them.
class RegistryLines {
public:
    /// Decodes the file and cuts it at its line feeds.
    /// @throws RegistryTextFailure when the bytes are neither UTF-8 nor UTF-16LE with its mark.
    explicit RegistryLines(std::string_view bytes);

    /// Goes to the beginning of the next line.
    /// @return false after the last one.
    bool Next() noexcept;

    /// What is left of the line.
    std::u16string_view Rest() const noexcept { return rest_; }

    /// The next character of the line; 0, which no file holds, at its end.
    char16_t Peek() const noexcept { return rest_.empty() ? u'\0' : rest_.front(); }

    void Skip(std::size_t characters) noexcept { rest_.remove_prefix(characters); }

    /// Skips blanks and tabulators.
    void SkipBlanks() noexcept;

    /// Skips the text if it comes next, without regard to the case of a to z.
    bool TakeIf(std::u16string_view expected) noexcept;

    /// Whether nothing but blanks and a comment is left of the line.
    bool AtEndOrComment() noexcept;

    /// Fails with the number of this line.
    [[noreturn]] void Fail(const std::string& message) const;

private:
    std::u16string text_;
    std::vector<std::u16string_view> lines_;
    std::size_t next_ = 0;
    std::u16string_view rest_;
};
