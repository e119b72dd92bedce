#include "pages/column_history.h"

#include "control/call.h"
#include "control/inside.h"

#include <utility>

namespace tablio {

ColumnHistory::ColumnHistory(Tablio &control)
    : control_(control), columns_(Inside::of(control).state.columns),
      primaryColumn_(control.PrimaryColumn()), checkBoxes_(control.CheckBoxes()),
      cols_(control.Cols()) {
    const GridTable &table = Inside::of(control).state.grid.table;
    for (int col = 0; col < cols_; ++col)
        settings_.push_back({table.Rows() > 0 ? std::string(table.TextMatrix(0, col)) : "",
                             table.ColWidth(col), table.ColAlignment(col),
                             table.FixedAlignment(col)});
}

bool ColumnHistory::hasRowsInPlace() const {
    return Inside::of(control_).state.grid.table.shiftStamp() == shiftStamp_;
}

void ColumnHistory::inserted(int col) { add({col, true, {}}); }

void ColumnHistory::removed(int col, CarriedCells::Column column) {
    add({col, false, std::move(column)});
}

void ColumnHistory::add(Step step) {
    steps_.push_back(std::move(step));
    shiftStamp_ = Inside::of(control_).state.grid.table.shiftStamp();
    cols_ = control_.Cols();
}

void ColumnHistory::takeBack() {
    const Call control(Inside::shared(control_));
    ControlState &state = control->state;
    if (state.grid.table.Cols() != cols_)
        return;
    control->session.EndCellEdit();
    GridTable &table = state.grid.table;
    const auto restore = [&] {
        table.setCols(static_cast<int>(settings_.size()));
        state.columns.copy(columns_);
        for (int col = 0; col < table.Cols(); ++col) {
            const Setting &setting = settings_[static_cast<std::size_t>(col)];
            if (table.Rows() > 0)
                table.setTextMatrix(0, col, setting.caption);
            table.setColWidth(col, setting.width);
            table.setColAlignment(col, setting.alignment);
            table.setFixedAlignment(col, setting.fixedAlignment);
        }
        control_.setPrimaryColumn(primaryColumn_);
        control_.setCheckBoxes(checkBoxes_);
    };
    if (steps_.empty()) {
        restore();
        return;
    }
    const bool isInPlace = hasRowsInPlace();
    CarriedCells cells(state, control->marker, control->rows);
    for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
        if (step->isInsert)
            (void)cells.takeCol(step->col);
        else
            cells.insertCol(step->col,
                            isInPlace ? std::move(step->removed) : CarriedCells::Column());
    }
    restore();
}

} // namespace tablio
