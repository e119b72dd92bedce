#pragma once

/// What the buttons of the page `Columns` have done to a control since its columns were last agreed
/// on, so that Cancel can give back what was. The page writes it; it never acts by itself.

#include "rows/carried_cells.h"

#include <tablio/tablio.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tablio {

class ColumnHistory {
public:
    explicit ColumnHistory(Tablio &control);

    void inserted(int col);
    void removed(int col, CarriedCells::Column column);
    /// The columns are again as they were when this object was made, with what their cells held. A
    /// removed column comes back blank where rows were moved since, and all stays as it is where
    /// somebody else has changed the number of columns.
    void takeBack();

private:
    struct Setting {
        std::string caption;
        Twips width;
        int alignment;
        int fixedAlignment;
    };
    struct Step {
        int col;
        bool isInsert;
        CarriedCells::Column removed;
    };

    [[nodiscard]] bool hasRowsInPlace() const;
    void add(Step step);

    Tablio &control_;
    ColumnSettings columns_;
    std::vector<Setting> settings_;
    int primaryColumn_;
    int checkBoxes_;
    std::vector<Step> steps_;
    /// The grid's when the last step was done: another one means that rows stand elsewhere.
    std::uint64_t shiftStamp_ = 0;
    /// Columns after the last step.
    int cols_;
};

} // namespace tablio
