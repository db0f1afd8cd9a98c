#include "SheetReader.h"

#include "errors/Errors.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

/// As many as a spreadsheet has.
constexpr std::size_t kMostColumns = 16384;

bool IsEmpty(const std::vector<SheetCell>& cells) {
    return std::all_of(cells.begin(), cells.end(),
                       [](const SheetCell& cell) { return cell.text.empty(); });
}

}  // namespace

SheetReader::SheetReader(std::string file, std::string_view text, char separator)
    : file_(std::move(file)), text_(text), separator_(separator) {
}

bool SheetReader::Next(std::vector<SheetCell>& cells) {
    do {
        if (IsAtEnd()) {
            return false;
        }
        cells.clear();
        rowLine_ = line_;
        cells.push_back(ReadCell());
        while (IsAt(separator_)) {
            ++at_;
            if (cells.size() == kMostColumns) {
                Fail(line_, at_, "too many columns; expected at most 16384");
            }
            cells.push_back(ReadCell());
        }
        TakeLineEnd();
    } while (IsEmpty(cells));
    return true;
}

void SheetReader::PassOverLine() {
    while (!IsAtEnd() && !IsAtLineEnd()) {
        ++at_;
    }
    TakeLineEnd();
}

SheetCell SheetReader::ReadCell() {
    SkipBlanks();
    SheetCell cell;
    cell.line = line_;
    if (IsAt('"')) {
        ReadQuoted(cell.text);
    } else {
        ReadBare(cell.text);
    }
    const auto isText = [this](char character) { return !IsBlank(character); };
    cell.text.erase(std::find_if(cell.text.rbegin(), cell.text.rend(), isText).base(),
                    cell.text.end());
    cell.text.erase(cell.text.begin(), std::find_if(cell.text.begin(), cell.text.end(), isText));
    return cell;
}

void SheetReader::ReadBare(std::string& text) {
    while (!IsAtEnd() && !IsAtLineEnd() && !IsAt(separator_)) {
        text += text_[at_++];
    }
}

void SheetReader::ReadQuoted(std::string& text) {
    const std::size_t line = line_;
    const std::size_t open = at_++;
    for (bool isOpen = true; isOpen;) {
        if (IsAtEnd()) {
            Fail(line, open, "a quote that is never closed; expected another behind the text");
        }
        if (IsAtLineEnd()) {
            TakeLineEnd();
            text += '\n';
        } else if (!IsAt('"')) {
            text += text_[at_++];
        } else if (text_.substr(at_, 2) == "\"\"") {
            text += '"';
            at_ += 2;
        } else {
            ++at_;
            isOpen = false;
        }
    }
    SkipBlanks();
    if (!IsAtEnd() && !IsAtLineEnd() && !IsAt(separator_)) {
        Fail(line_, at_, "text behind a closing quote; expected two quotes for one in a text");
    }
}

void SheetReader::SkipBlanks() {
    while (!IsAtEnd() && IsBlank(text_[at_])) {
        ++at_;
    }
}

void SheetReader::TakeLineEnd() {
    if (IsAtEnd()) {
        return;
    }
    at_ += text_.substr(at_, 2) == "\r\n" ? 2 : 1;
    ++line_;
}

void SheetReader::Fail(std::size_t line, std::size_t at, const std::string& wrong) const {
    const std::size_t before =
        at == 0 ? std::string_view::npos : text_.find_last_of("\r\n", at - 1);
    const std::size_t first = before == std::string_view::npos ? 0 : before + 1;
    throw SyntaxError(file_, static_cast<long>(line), static_cast<long>(at - first + 1), wrong);
}

}  // namespace qxmix
