#pragma once

#include <cstddef>
#include <string>

namespace qxmix {

enum class ColorMode { Auto, Always, Never };

constexpr std::size_t kPlainWidth = 80;  ///< columns that every text fits

/// Columns of the terminal on standard output, and never fewer than 80; 80 where there is none.
std::size_t OutputWidth();

/// Paints words with the terminal's colours, or leaves them as they are.
class Painter {
public:
    /// Auto: at a terminal that is not dumb, unless NO_COLOR says otherwise.
    explicit Painter(ColorMode mode);

    /// @param style  parameters of a colour sequence such as "1;38;5;166"; empty: no colour.
    std::string Paint(const std::string& text, const std::string& style) const;

private:
    bool isOn_;
};

/// The text without what could move the cursor, split a line or turn its direction: each such
/// character, and each byte that is none, becomes "?".
std::string Printable(const std::string& text);

/// Columns that a text fills.
std::size_t ColumnsOf(const std::string& utf8);

/// The text cut to so many columns.
std::string CutToColumns(const std::string& utf8, std::size_t columns);

}  // namespace qxmix
