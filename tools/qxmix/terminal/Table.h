#pragma once

#include "Terminal.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qxmix {

struct Cell {
    Cell(std::string cellText, std::string cellStyle = "")
        : text(std::move(cellText)), style(std::move(cellStyle)) {}
    Cell(const char* cellText) : text(cellText) {}

    std::string text;
    std::string style;  ///< see Painter::Paint
};

/// A table of text. Numbers are never cut: a column grows with its longest cell.
class Table {
public:
    enum class Align { Left, Right };

    struct Column {
        Align align = Align::Left;
        std::size_t gap = 1;    ///< least columns before it
        std::size_t width = 0;  ///< columns it fills where there is room, the gap not counted
    };

    explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

    /// @param cells   at most one a column.
    /// @param indent  columns that the whole row is shifted to the right.
    void AddRow(std::vector<Cell> cells, std::size_t indent = 0);

    /// Columns of its longest line.
    std::size_t Width() const;

    /// Gives up the room that columns have beyond their content and one column of gap.
    void Narrow();

    /// The lines, each with its line end and without blanks at it.
    std::string Text(const Painter& painter) const;

private:
    struct Row {
        std::vector<Cell> cells;
        std::size_t indent = 0;
    };

    std::size_t ContentWidth(std::size_t column) const;
    std::vector<std::size_t> Widths() const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;
};

/// Builds a table whose labels may be cut: as long as they are if the table then fits the width,
/// else shorter, down to eight columns; if that is not enough the table is narrowed.
///
/// @param longest  columns of the longest label.
/// @param build    makes the table with labels of at most so many columns.
template <typename Build>
Table FitLabels(std::size_t width, std::size_t longest, const Build& build) {
    constexpr std::size_t kShortestLabel = 8;
    Table table = build(longest);
    if (table.Width() > width && longest > kShortestLabel) {
        const std::size_t excess = table.Width() - width;
        const bool isEnough = longest - kShortestLabel > excess;
        table = build(isEnough ? longest - excess : kShortestLabel);
    }
    if (table.Width() > width) {
        table.Narrow();
    }
    return table;
}

}  // namespace qxmix
