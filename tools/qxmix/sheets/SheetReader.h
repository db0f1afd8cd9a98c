#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qxmix {

/// One cell of a sheet.
struct SheetCell {
    std::string text;      ///< without quotes, and without blanks at either end
    std::size_t line = 0;  ///< of the file, where it begins; the first is 1
};

/// Reads a sheet row by row: cells between separators, rows between line ends of any system. A cell
/// that begins with a quote goes on to the next one, whatever is between them; two quotes stand for
/// one. Rows of empty cells are passed over.
class SheetReader {
public:
    /// @param file  as it stands in errors.
    /// @param text  UTF-8; outlives the reader.
    SheetReader(std::string file, std::string_view text, char separator);

    /// @param cells  receives the next row, of at least one cell.
    /// @return false when there is none.
    /// @throw InputError FILE:LINE:COLUMN
    bool Next(std::vector<SheetCell>& cells);

    /// The line in which the row begins that was read last, or could not be read.
    std::size_t RowLine() const { return rowLine_; }

    /// Goes to the next line, so that one can read on behind a row that cannot be read.
    void PassOverLine();

private:
    bool IsAtEnd() const { return at_ == text_.size(); }
    bool IsAt(char character) const { return !IsAtEnd() && text_[at_] == character; }
    bool IsAtLineEnd() const { return IsAt('\n') || IsAt('\r'); }
    bool IsBlank(char character) const {
        return (character == ' ' || character == '\t') && character != separator_;
    }

    SheetCell ReadCell();
    void ReadBare(std::string& text);
    void ReadQuoted(std::string& text);
    void SkipBlanks();
    void TakeLineEnd();
    [[noreturn]] void Fail(std::size_t line, std::size_t at, const std::string& wrong) const;

    std::string file_;
    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::size_t rowLine_ = 1;
};

}  // namespace qxmix
