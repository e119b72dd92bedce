#include <tablio/pages/general_page.h>

#include "control/call.h"
#include "control/inside.h"
#include "model/text/number_text.h"
#include "pages/page_numbers.h"
#include "rows/carried_cells.h"

#include <optional>
#include <string>

namespace tablio {

namespace {

/// Wide enough for the tick.
constexpr Twips checkColumnWidth = 300;

int bitOf(const Value &boolean) { return boolean.toLong() & 1; }

/// Apply may come while a count's box still has the keyboard, and a grid keeps a header and a
/// column.
double orOne(double count) { return count == 0 ? 1 : count; }

} // namespace

General::General(Tablio &control, PageListener &listener)
    : PropertyPage("General", control, listener) {
    setControls({&txtRows, &RowUpDown, &txtCols, &ColUpDown, &txtHeaderRowHeight, &txtRowMinHeight,
                 &txtPrimaryColumn, &chkCheckboxes, &chkHeaderFontBold, &chkWordWrap,
                 &chkGridPopUpMenu, &chkWithFixedColumn});
    connect();
}

void General::connect() {
    const auto mark = [this] { setChanged(true); };
    // A tick of chkGridPopUpMenu is applied together with any other change, but marks none itself.
    for (PageCheckBox *box : {&chkCheckboxes, &chkHeaderFontBold, &chkWordWrap})
        box->onClick = mark;
    for (PageTextBox *box : {&txtHeaderRowHeight, &txtRowMinHeight})
        box->onChange = mark;

    txtRows.onChange = [this] {
        attempt([this] { RowUpDown.setValue(Value(leadingNumber(txtRows.Text())).toLong()); });
        setChanged(true);
    };
    txtRows.onLostFocus = [this] {
        if (leadingNumber(txtRows.Text()) < 2)
            txtRows.setText("2");
    };
    RowUpDown.onChange = [this] { txtRows.setText(std::to_string(RowUpDown.Value())); };
    txtCols.onChange = [this] { txtCols_Change(); };
    txtCols.onLostFocus = [this] { txtCols_LostFocus(); };
    ColUpDown.onChange = [this] { txtCols.setText(std::to_string(ColUpDown.Value())); };
    txtPrimaryColumn.onChange = [this] { txtPrimaryColumn_Change(); };
    chkWithFixedColumn.onClick = [this] { chkWithFixedColumn_Click(); };
}

void General::SelectionChanged() {
    editing_.emplace(control_);
    attempt([this] { chkCheckboxes.setValue(bitOf(get("CheckBoxes"))); });
    attempt([this] { txtRows.setText(get("Rows").toText()); });
    attempt([this] { txtCols.setText(dataColumns()); });
    attempt([this] { chkHeaderFontBold.setValue(bitOf(get("HeaderFontBold"))); });
    attempt([this] { chkWordWrap.setValue(bitOf(get("WordWrap"))); });
    attempt([this] { chkGridPopUpMenu.setValue(bitOf(get("GridPopUpMenu"))); });
    attempt([this] { txtHeaderRowHeight.setText(get("HeaderRowHeight").toText()); });
    attempt([this] { txtRowMinHeight.setText(get("RowMinHeight").toText()); });
    attempt([this] { chkWithFixedColumn.setValue(bitOf(get("WithFixedColumn"))); });
    // Last, so that it stands as the control has it whatever the fixed column asked for.
    attempt([this] { txtPrimaryColumn.setText(get("PrimaryColumn").toText()); });
    agree();
    offerFixedColumn();
    setChanged(false);
}

void General::ApplyChanges() {
    attempt([this] { put("Rows", orOne(Value(txtRows.Text()).toDouble())); });
    putCols();
    followByPrimaryColumn();
    put("HeaderFontBold", chkHeaderFontBold.isTicked());
    put("WordWrap", chkWordWrap.isTicked());
    put("GridPopUpMenu", chkGridPopUpMenu.isTicked());
    put("HeaderRowHeight", txtHeaderRowHeight.Text());
    put("RowMinHeight", txtRowMinHeight.Text());
    put("PrimaryColumn", leadingNumber(txtPrimaryColumn.Text()));
    put("WithFixedColumn", chkWithFixedColumn.isTicked());
    attempt([this] {
        // A control that already has fixed columns keeps them.
        if (get("FixedCols").toLong() == 0)
            put("FixedCols", leadingNumber(txtPrimaryColumn.Text()));
    });
    put("CheckBoxes", chkCheckboxes.isTicked());
    if (chkCheckboxes.isTicked())
        put("ColWidth", leadingIndex(txtCols.Text()), checkColumnWidth);
    agree();
    setChanged(false);
}

void General::putCols() {
    const Call control(Inside::shared(control_));
    ControlState &state = control->state;
    const int cols = state.grid.table.Cols();
    const int old = state.isCheckCell({0, cols - 1}) ? cols - 1 : -1;
    const int next = chkCheckboxes.isTicked() ? leadingIndex(txtCols.Text()) : -1;
    const auto putCount = [this] {
        attempt([this] {
            const double columns = Value(txtCols.Text()).toDouble();
            put("Cols", orOne(columns + chkCheckboxes.Value()));
        });
    };
    if (old == next)
        return putCount();
    // The ticks go with their column, and no data column comes to stand for ticks.
    control->session.EndCellEdit();
    CarriedCells cells(state, control->marker, control->rows);
    CarriedCells::Column ticks;
    if (old >= 0)
        ticks = cells.takeCol(old);
    putCount();
    const int last = state.grid.table.Cols() - 1;
    if (old != last || next < 0)
        state.grid.table.forgetColWidth(old);
    if (next == last || (next >= 0 && old >= 0)) {
        cells.setCols(last);
        cells.insertCol(last, std::move(ticks));
    }
}

void General::followByPrimaryColumn() {
    attempt([this] {
        const int last = get("Cols").toLong() - chkCheckboxes.Value() - 1;
        if (last >= 0 && leadingNumber(txtPrimaryColumn.Text()) > last)
            txtPrimaryColumn.setText(std::to_string(last));
    });
}

void General::applyMenu() { put("GridPopUpMenu", chkGridPopUpMenu.isTicked()); }

void General::agree() {
    agreedCols_ = txtCols.Text();
    agreedPrimary_ = txtPrimaryColumn.Text();
}

void General::followColumnCount() {
    const bool wasChanged = Changed();
    const bool followsPrimary = txtPrimaryColumn.Text() == agreedPrimary_;
    if (txtCols.Text() == agreedCols_) {
        attempt([this] { txtCols.setText(dataColumns()); });
        agreedCols_ = txtCols.Text();
        offerFixedColumn();
    }
    if (followsPrimary) {
        attempt([this] { txtPrimaryColumn.setText(get("PrimaryColumn").toText()); });
        agreedPrimary_ = txtPrimaryColumn.Text();
    }
    setChanged(wasChanged);
}

void General::copyFrom(const General &other) {
    PropertyPage::copyFrom(other);
    agreedCols_ = other.agreedCols_;
    agreedPrimary_ = other.agreedPrimary_;
}

std::string General::dataColumns() {
    return std::to_string(get("Cols").toLong() - bitOf(get("CheckBoxes")));
}

void General::txtCols_Change() {
    attempt([this] { ColUpDown.setValue(Value(txtCols.Text()).toLong()); });
    setChanged(true);
}

void General::txtCols_LostFocus() {
    const double columns = leadingNumber(txtCols.Text());
    if (columns <= 1)
        chkWithFixedColumn.setValue(0);
    offerFixedColumn();
    if (columns < 1)
        txtCols.setText("1");
}

void General::offerFixedColumn() {
    chkWithFixedColumn.setEnabled(leadingNumber(txtCols.Text()) > 1);
}

void General::txtPrimaryColumn_Change() {
    setChanged(true);
    const double columns = leadingNumber(txtCols.Text());
    if (leadingNumber(txtPrimaryColumn.Text()) >= columns)
        txtPrimaryColumn.setText(Value(columns - 1).toText());
    attempt([this] {
        const double primary = Value(NormalizeNumberText(txtPrimaryColumn.Text())).toDouble();
        if (primary > 0 && !chkWithFixedColumn.isTicked())
            chkWithFixedColumn.setValue(1);
    });
}

void General::chkWithFixedColumn_Click() {
    setChanged(true);
    if (chkWithFixedColumn.isTicked() && leadingNumber(txtPrimaryColumn.Text()) == 0)
        txtPrimaryColumn.setText("1");
}

} // namespace tablio
