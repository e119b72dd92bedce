#include <tablio/cells.h>

#include "control/call.h"
#include "control/inside.h"
#include "model/text/date_text.h"

#include <tablio/errors.h>
#include <tablio/members.h>

#include <optional>
#include <string>

namespace tablio {

namespace {

/// What a data cell of this column is written with; nothing for a blank one.
std::optional<std::string> textFor(const ControlState &state, int col, const CellValue &value) {
    if (value.isEmpty())
        return std::nullopt;
    const NumberFormat signs = state.link.face().numberFormat();
    switch (state.columns.ColEditType(col)) {
    case TColumnType::ColumnInteger:
        if (value.toDecimal().fractionDigits() > 0)
            throw TypeMismatch("\"" + value.toText() + "\" is no whole number");
        return value.toDecimal().plainText(signs);
    case TColumnType::ColumnDecimal:
        return value.toDecimal().plainText(signs);
    case TColumnType::ColumnDate:
        return DateToText(value.toDate());
    default:
        return value.toText();
    }
}

CellValue valueOf(const ControlState &state, int col, std::string_view text) {
    if (text.empty())
        return {};
    const std::string given(text);
    if (state.columns.isNumeric(col)) {
        const auto number = Decimal::parse(given, state.link.face().numberFormat());
        if (!number)
            return given;
        constexpr int digitsOf64Bits = 18;
        const bool isWhole =
            number->fractionDigits() == 0 && number->leadingPower() < digitsOf64Bits;
        return isWhole && state.columns.ColEditType(col) == TColumnType::ColumnInteger
                   ? CellValue(CellValue(*number).toInteger())
                   : CellValue(*number);
    }
    if (state.columns.ColEditType(col) != TColumnType::ColumnDate)
        return given;
    if (IsBlankDate(given))
        return {};
    // A leap day that only this control knows is no date elsewhere.
    const Date date = IsDateInvalid(given) ? noDate : TextToDate(given);
    return DateToText(date) == given ? CellValue(date) : CellValue(given);
}

/// Checks a row of values, and then writes it.
class RowWriter {
public:
    RowWriter(Control &control, int firstCol) : control_(control), firstCol_(firstCol) {}

    /// Throws what cannot be written.
    void check(int row, std::span<const CellValue> values) const {
        for (std::size_t place = 0; place < values.size(); ++place) {
            const CellAddress cell{row, firstCol_ + static_cast<int>(place)};
            if (control_.state.isCheckCell(cell))
                (void)values[place].toBoolean();
            else if (!isHeader(row))
                (void)textFor(control_.state, cell.col, values[place]);
        }
    }
    void write(int row, std::span<const CellValue> values) const {
        for (std::size_t place = 0; place < values.size(); ++place)
            write({row, firstCol_ + static_cast<int>(place)}, values[place]);
    }

private:
    [[nodiscard]] bool isHeader(int row) const {
        return row < control_.state.grid.table.FixedRows();
    }
    void write(CellAddress cell, const CellValue &value) const {
        GridTable &table = control_.state.grid.table;
        if (isHeader(cell.row))
            table.setTextMatrix(cell.row, cell.col, value.toText());
        else if (control_.state.isCheckCell(cell))
            control_.checks.put(cell, value.toBoolean());
        else if (const auto text = textFor(control_.state, cell.col, value))
            control_.cells.show(cell.row, cell.col, *text);
        else // A picture would make something of nothing.
            table.setTextMatrix(cell.row, cell.col, {});
    }

    Control &control_;
    int firstCol_;
};

void writeRow(Control &control, CellAddress first, std::span<const CellValue> values) {
    const GridTable &table = control.state.grid.table;
    table.checkCell(first, "cell values");
    if (static_cast<int>(values.size()) > table.Cols() - first.col)
        throw GridError("cell values: " + std::to_string(values.size()) + " values from column " +
                        std::to_string(first.col) + " on do not fit the grid");
    const RowWriter writer(control, first.col);
    writer.check(first.row, values);
    const RepaintOnce repaintOnce(control.state.grid);
    writer.write(first.row, values);
    control.state.link.propertyChanged(Number::TextMatrix);
}

} // namespace

CellValue Cells::value(int row, int col) const {
    const ControlState &state = Inside::of(control_).state;
    const GridTable &table = state.grid.table;
    const std::string_view shown = table.TextMatrix(row, col);
    if (row < table.FixedRows())
        return shown;
    if (state.isCheckCell({row, col}))
        return Inside::of(control_).checks.isChecked(row);
    return valueOf(state, col, shown.empty() ? shown : table.CellData(row, col));
}

void Cells::setValue(int row, int col, const CellValue &value) {
    const Call control(Inside::shared(control_));
    writeRow(*control, {row, col}, {&value, 1});
}

bool Cells::isEmpty(int row, int col) const { return value(row, col).isEmpty(); }

std::vector<CellValue> Cells::rowValues(int row) const {
    std::vector<CellValue> values;
    for (int col = Inside::of(control_).state.grid.table.FixedCols(); col < control_.Cols(); ++col)
        values.push_back(value(row, col));
    return values;
}

void Cells::setRowValues(int row, std::span<const CellValue> values) {
    const Call control(Inside::shared(control_));
    writeRow(*control, {row, control->state.grid.table.FixedCols()}, values);
}

int Cells::appendRows(std::span<const CellValue> values, int valuesPerRow) {
    const Call control(Inside::shared(control_));
    ControlState &state = control->state;
    const int firstCol = state.grid.table.FixedCols();
    const auto width = static_cast<std::size_t>(valuesPerRow);
    if (valuesPerRow < 1 || valuesPerRow > state.grid.table.Cols() - firstCol ||
        values.size() % width != 0)
        throw GridError("appendRows: " + std::to_string(values.size()) + " values are no rows of " +
                        std::to_string(valuesPerRow) + " in this grid");
    const auto count = values.size() / width;
    const RowWriter writer(*control, firstCol);
    const auto rowOf = [&](std::size_t row) { return values.subspan(row * width, width); };
    for (std::size_t row = 0; row < count; ++row)
        writer.check(GridTable::maxRows, rowOf(row));
    if (count > static_cast<std::size_t>(GridTable::maxRows))
        throw OverflowError("appendRows: " + std::to_string(count) + " rows do not fit 16 bits");
    control->session.EndCellEdit();
    const int first = std::max(control->rows.dataCount() + 1, state.grid.table.FixedRows());
    const int missing = first + static_cast<int>(count) - state.grid.table.Rows();
    const RepaintOnce repaintOnce(state.grid);
    if (missing > 0)
        control->rows.append(missing);
    for (std::size_t row = 0; row < count; ++row)
        writer.write(first + static_cast<int>(row), rowOf(row));
    state.link.propertyChanged(Number::TextMatrix);
    if (missing > 0)
        state.link.TableChange();
    return first;
}

} // namespace tablio
