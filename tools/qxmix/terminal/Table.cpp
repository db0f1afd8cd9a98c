#include "Table.h"

#include <algorithm>

namespace qxmix {

void Table::AddRow(std::vector<Cell> cells, std::size_t indent) {
    rows_.push_back({std::move(cells), indent});
}

std::size_t Table::Width() const {
    const std::vector<std::size_t> widths = Widths();
    std::size_t width = 0;
    for (const Row& row : rows_) {
        std::size_t end = row.indent;
        for (std::size_t column = 0; column < row.cells.size(); ++column) {
            end += columns_[column].gap + widths[column];
        }
        width = std::max(width, end);
    }
    return width;
}

void Table::Narrow() {
    for (Column& column : columns_) {
        column.gap = std::min<std::size_t>(column.gap, 1);
        column.width = 0;
    }
}

std::string Table::Text(const Painter& painter) const {
    const std::vector<std::size_t> widths = Widths();
    std::string text;
    for (const Row& row : rows_) {
        std::size_t blanks = row.indent;
        for (std::size_t column = 0; column < row.cells.size(); ++column) {
            const Cell& cell = row.cells[column];
            const std::size_t padding = widths[column] - ColumnsOf(cell.text);
            const bool isRight = columns_[column].align == Align::Right;
            blanks += columns_[column].gap + (isRight ? padding : 0);
            if (!cell.text.empty()) {
                text.append(blanks, ' ');
                text += painter.Paint(cell.text, cell.style);
                blanks = 0;
            }
            blanks += isRight ? 0 : padding;
        }
        text += '\n';
    }
    return text;
}

std::size_t Table::ContentWidth(std::size_t column) const {
    std::size_t width = 0;
    for (const Row& row : rows_) {
        if (column < row.cells.size()) {
            width = std::max(width, ColumnsOf(row.cells[column].text));
        }
    }
    return width;
}

std::vector<std::size_t> Table::Widths() const {
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        widths.push_back(std::max(columns_[column].width, ContentWidth(column)));
    }
    return widths;
}

}  // namespace qxmix
