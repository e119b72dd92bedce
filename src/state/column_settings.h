#pragma once

/// The six settings of each column that the control itself keeps, as texts in six growable lists.
/// Captions, widths and alignments live in the grid table. Indexes are grid columns, from 0.

#include "model/grid/grid_table.h"

#include <tablio/types.h>

#include <array>
#include <string>
#include <vector>

namespace tablio {

class ColumnSettings {
public:
    /// The lists in the order in which they are kept.
    enum List { Style, EditType, Format, MaxLength, DataType, CalcStyle };

    explicit ColumnSettings(const GridTable &table) : table_(table) {}

    [[nodiscard]] TColumnStyle ColStyle(int col) const { return as<TColumnStyle>(Style, col); }
    [[nodiscard]] TColumnType ColEditType(int col) const { return as<TColumnType>(EditType, col); }
    [[nodiscard]] const std::string &ColFormat(int col) const { return text(Format, col); }
    [[nodiscard]] int ColMaxLength(int col) const { return number(MaxLength, col); }
    [[nodiscard]] TDataType ColDataType(int col) const { return as<TDataType>(DataType, col); }
    [[nodiscard]] TCalcStyle ColCalcStyle(int col) const { return as<TCalcStyle>(CalcStyle, col); }

    /// Reading a grid column without an entry answers "" (a number: 0). Throws GridError for a
    /// column that neither the lists nor the grid have, OverflowError for one beyond 16 bits;
    /// writing needs an entry in the list.
    [[nodiscard]] const std::string &text(List list, int col) const {
        const std::vector<std::string> &entries = lists_[list];
        const bool hasEntry = col >= 0 && static_cast<std::size_t>(col) < entries.size();
        return hasEntry ? entries[static_cast<std::size_t>(col)] : missingText(col);
    }
    void setText(List list, int col, std::string value);
    /// Throws GridError for a column without an entry to write to.
    void checkEntry(int col) const;
    void setNumber(List list, int col, std::int32_t value);

    /// Default entries for the columns of a new grid. They go without a trace when the first column
    /// count that is asked for is lower.
    void start();
    /// Makes the lists follow the grid's column count. More columns get default entries; after
    /// fewer columns the old entries stay, followed by one filler for each column that went, unless
    /// fillers stand beyond the count already. Answers whether default entries were added.
    bool followColumnCount();

    [[nodiscard]] int length() const noexcept { return static_cast<int>(lists_[Style].size()); }
    void clear();
    /// Holds what the other holds, also for columns that went.
    void copy(const ColumnSettings &other) {
        isStart_ = false;
        lists_ = other.lists_;
        hasFillers_ = other.hasFillers_;
    }
    /// One more entry for the next column.
    void append(const std::array<std::string, 6> &entry);

    [[nodiscard]] bool isInput(int col) const;
    [[nodiscard]] bool isNumeric(int col) const;

private:
    [[nodiscard]] const std::string &missingText(int col) const;
    [[nodiscard]] std::int32_t number(List list, int col) const;
    template <typename Setting> [[nodiscard]] Setting as(List list, int col) const {
        return static_cast<Setting>(number(list, col));
    }

    const GridTable &table_;
    std::array<std::vector<std::string>, 6> lists_;
    bool isStart_ = false;
    /// The lists end in fillers that are no column's settings yet.
    bool hasFillers_ = false;
};

} // namespace tablio
