#include "state/column_settings.h"

#include "model/text/ascii.h"
#include "model/text/leading_number.h"
#include "state/host_link.h"

#include <tablio/errors.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace tablio {

const std::string &ColumnSettings::missingText(int col) const {
    static const std::string none;
    (void)to16Bit(col, "column index");
    table_.checkCol(col, "column setting");
    return none;
}

void ColumnSettings::checkEntry(int col) const {
    (void)to16Bit(col, "column index");
    if (col < 0 || col >= length())
        throw GridError("column setting: column " + std::to_string(col) + " is outside 0 to " +
                        std::to_string(length() - 1));
}

void ColumnSettings::setText(List list, int col, std::string value) {
    checkEntry(col);
    lists_[list][static_cast<std::size_t>(col)] = std::move(value);
}

void ColumnSettings::setNumber(List list, int col, std::int32_t value) {
    setText(list, col, std::to_string(value));
}

void ColumnSettings::start() {
    followColumnCount();
    isStart_ = true;
}

bool ColumnSettings::followColumnCount() {
    // No host has asked for the columns that a control starts with.
    if (std::exchange(isStart_, false)) {
        const auto cols = static_cast<std::size_t>(table_.Cols());
        for (std::vector<std::string> &list : lists_)
            list.resize(std::min(list.size(), cols));
    }
    const int missing = table_.Cols() - length();
    for (int round = 0; round < missing; ++round)
        append({"0", "0", "", "64", "0", "0"});
    const int fillers = hasFillers_ ? 0 : -missing;
    for (int round = 0; round < fillers; ++round) {
        for (std::vector<std::string> &list : lists_)
            list.push_back(std::to_string(list.size()));
    }
    hasFillers_ = missing < 0;
    return missing > 0;
}

void ColumnSettings::clear() {
    isStart_ = hasFillers_ = false;
    for (std::vector<std::string> &list : lists_)
        list.clear();
}

void ColumnSettings::append(const std::array<std::string, 6> &entry) {
    for (std::size_t list = 0; list < lists_.size(); ++list)
        lists_[list].push_back(entry[list]);
}

bool ColumnSettings::isInput(int col) const {
    const TColumnStyle style = ColStyle(col);
    return style == TColumnStyle::ColumnInput || style == TColumnStyle::ColumnInputWithLookup;
}

bool ColumnSettings::isNumeric(int col) const {
    const TColumnType type = ColEditType(col);
    return type == TColumnType::ColumnDecimal || type == TColumnType::ColumnInteger;
}

std::int32_t ColumnSettings::number(List list, int col) const {
    const std::string &held = text(list, col);
    if (held.size() == 1 && ascii::isDigit(held.front()))
        return held.front() - '0';
    const std::int64_t whole = leadingWhole(held);
    using Limits = std::numeric_limits<std::int32_t>;
    // What 32 bits do not hold is no setting.
    return whole >= Limits::min() && whole <= Limits::max() ? static_cast<std::int32_t>(whole) : 0;
}

} // namespace tablio
