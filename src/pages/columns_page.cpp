#include <tablio/pages/columns_page.h>

#include "model/text/number_text.h"
#include "pages/page_numbers.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace tablio {

namespace {

constexpr int greatestMaxLength = 1024;
constexpr int removeButton = 1;

constexpr std::string_view calcStyle = "ColCalcStyle";
/// The control has no such property, so that a step under this name fails.
constexpr std::string_view noCalcStyle = "ColCalStyle";

/// The settings of a column in the order in which they are copied.
constexpr std::array<std::string_view, 10> settings{
    "ColStyle",     "ColEditType",   "ColDataType", calcStyle,          "ColFormat",
    "ColMaxLength", "ColTextHeader", "ColWidth",    "ColDataAlignment", "ColHeaderAlignment"};

int itemOfAlignment(int alignment) { return alignment == 1 ? 0 : alignment == 4 ? 1 : 2; }

int alignmentOfItem(int item) { return item == 0 ? 1 : item == 1 ? 4 : 7; }

} // namespace

Columns::Columns(Tablio &control, PageListener &listener)
    : PropertyPage("Columns", control, listener) {
    setControls({&txtIndex, &cmdIndex[0], &cmdIndex[1], &cmdCommand[0], &cmdCommand[1],
                 &txtColTextHeader, &cboColumnStyle, &cboColEditType, &cboDataType, &cboCalcStyle,
                 &txtColFormat, &txtColMaxLength, &txtColWidth, &cboColDataAlignment,
                 &cboColHeaderAlignment});
    connect();
}

void Columns::connect() {
    const auto mark = [this] { setChanged(true); };
    for (PageTextBox *box : {&txtIndex, &txtColTextHeader, &txtColFormat, &txtColWidth})
        box->onChange = mark;
    for (PageList *list : {&cboColumnStyle, &cboDataType, &cboCalcStyle, &cboColDataAlignment,
                           &cboColHeaderAlignment})
        list->onClick = mark;
    txtColMaxLength.onChange = [this] { txtColMaxLength_Change(); };
    cboColEditType.onClick = [this] { cboColEditType_Click(); };
    for (std::size_t button = 0; button < 2; ++button) {
        const int Index = static_cast<int>(button);
        cmdIndex[button].onClick = [this, Index] { cmdIndex_Click(Index); };
        cmdCommand[button].onClick = [this, Index] { cmdCommand_Click(Index); };
    }
}

int Columns::index() const { return leadingIndex(txtIndex.Text()); }

int Columns::Cols() { return get("Cols").toLong(); }

void Columns::SelectionChanged() {
    cmdIndex[0].setEnabled(index() != 0);
    attempt([this] { cmdIndex[1].setEnabled(index() != Cols() - 1); });
    attempt([this] { cmdCommand[removeButton].setEnabled(Cols() != 1); });
    txtIndex.setText(std::to_string(index()));
    attempt([this] {
        if (index() >= Cols())
            txtIndex.setText(std::to_string(Cols() - 1));
    });

    const int i = index();
    attempt([&] { cboColumnStyle.setListIndex(get("ColStyle", i).toLong()); });
    attempt([&] { cboColEditType.setListIndex(get("ColEditType", i).toLong()); });
    const auto editType = static_cast<TColumnType>(cboColEditType.ListIndex());
    const bool isDateOrCombo =
        editType == TColumnType::ColumnDate || editType == TColumnType::ColumnCombo;
    attempt([&] { cboDataType.setListIndex(isDateOrCombo ? 0 : get("ColDataType", i).toLong()); });
    const bool hasOneStyle = isDateOrCombo || editType == TColumnType::ColumnString;
    attempt([&] { cboCalcStyle.setListIndex(hasOneStyle ? 0 : get(calcStyle, i).toLong()); });
    attempt([&] { txtColFormat.setText(get("ColFormat", i).toText()); });
    attempt([&] { txtColTextHeader.setText(get("ColTextHeader", i).toText()); });
    attempt([&] { txtColWidth.setText(get("ColWidth", i).toText()); });
    attempt([&] { txtColMaxLength.setText(get("ColMaxLength", i).toText()); });
    attempt([&] {
        cboColDataAlignment.setListIndex(itemOfAlignment(get("ColDataAlignment", i).toLong()));
    });
    attempt([&] {
        cboColHeaderAlignment.setListIndex(itemOfAlignment(get("ColHeaderAlignment", i).toLong()));
    });
}

void Columns::ApplyChanges() {
    const int i = index();
    put("ColStyle", i, cboColumnStyle.ListIndex());
    put("ColEditType", i, cboColEditType.ListIndex());
    put("ColDataType", i, cboDataType.ListIndex());
    put(calcStyle, i, cboCalcStyle.ListIndex());
    put("ColFormat", i, txtColFormat.Text());
    put("ColTextHeader", i, txtColTextHeader.Text());
    put("ColWidth", i, leadingNumber(txtColWidth.Text()));
    put("ColMaxLength", i, leadingNumber(NormalizeNumberText(txtColMaxLength.Text(), 0)));
    put("ColDataAlignment", i, alignmentOfItem(cboColDataAlignment.ListIndex()));
    put("ColHeaderAlignment", i, alignmentOfItem(cboColHeaderAlignment.ListIndex()));
    setChanged(false);
}

void Columns::cboColEditType_Click() {
    txtColMaxLength.setEnabled(true);
    txtColFormat.setEnabled(true);
    const auto show = [](PageList &list, bool enabled, std::vector<std::string> items) {
        list.setEnabled(enabled);
        list.setItems(std::move(items));
        list.setListIndex(0);
    };
    const auto lock = [this](const char *maxLength, const char *format) {
        txtColMaxLength.setText(maxLength);
        txtColFormat.setText(format);
        txtColMaxLength.setEnabled(false);
        txtColFormat.setEnabled(false);
    };
    switch (static_cast<TColumnType>(cboColEditType.ListIndex())) {
    case TColumnType::ColumnString:
        show(cboCalcStyle, false, {"No Style"});
        show(cboDataType, true, {"AllCase", "UpperCase", "LowerCase"});
        break;
    case TColumnType::ColumnDecimal:
    case TColumnType::ColumnInteger:
        show(cboCalcStyle, true, {"No Style", "Calc.Style"});
        show(cboDataType, true, {"AllValue", "Positive", "Negative"});
        break;
    case TColumnType::ColumnDate:
        show(cboCalcStyle, false, {"No Style"});
        show(cboDataType, false, {"Date"});
        lock("10", "##/##/####");
        break;
    default:
        show(cboCalcStyle, false, {"No Style"});
        show(cboDataType, false, {"Combo"});
        lock("0", "");
        break;
    }
    setChanged(true);
}

void Columns::txtColMaxLength_Change() {
    if (leadingNumber(txtColMaxLength.Text()) > greatestMaxLength)
        txtColMaxLength.setText(std::to_string(greatestMaxLength));
    setChanged(true);
}

void Columns::cmdIndex_Click(int Index) {
    ApplyChanges();
    int i = index();
    if (Index == 0) {
        i = std::max(i - 1, 0);
    } else {
        // The check-box column at the right edge is not edited here.
        attempt([&] { i = std::min(i + 1, Cols() - 1 - std::abs(get("CheckBoxes").toLong())); });
    }
    txtIndex.setText(std::to_string(i));
    SelectionChanged();
    setFocus(txtColTextHeader);
}

void Columns::cmdCommand_Click(int Index) {
    if (Index == removeButton)
        removeColumn();
    else
        insertColumn();
    attempt([this] { cmdCommand[removeButton].setEnabled(Cols() != 1); });
    setFocus(txtColTextHeader);
}

void Columns::insertColumn() {
    const int i = index();
    attempt([this] { put("Cols", Cols() + 1); });
    attempt([&] {
        for (int j = Cols() - 1; j >= std::max(i, 0) + 1; --j)
            copySettings(j - 1, j, calcStyle);
    });
    setNewColumn(i + 1, 1, calcStyle);
    cmdIndex_Click(1);
}

void Columns::removeColumn() {
    const int i = index();
    // Every other setting moves one column to the left, the calculation styles stay where they are.
    setNewColumn(i, 0, noCalcStyle);
    attempt([&] {
        for (int j = std::max(i, 0); j <= Cols() - 2; ++j)
            copySettings(j + 1, j, noCalcStyle);
    });
    attempt([&] {
        if (i == Cols() - 1)
            cmdIndex_Click(0);
    });
    attempt([this] { put("Cols", Cols() - 1); });
    // What the page shows is gone; applying it would overwrite the column that has moved here.
    SelectionChanged();
}

void Columns::copySettings(int from, int to, std::string_view calcStyleName) {
    for (const std::string_view setting : settings)
        attempt(
            [&] { put(setting == calcStyle ? calcStyleName : setting, to, get(setting, from)); });
}

void Columns::setNewColumn(int col, int dataType, std::string_view calcStyleName) {
    put("ColStyle", col, TColumnStyle::ColumnFixed);
    put("ColEditType", col, TColumnType::ColumnString);
    put("ColDataType", col, dataType);
    put(calcStyleName, col, TCalcStyle::NoStyle);
    put("ColFormat", col, "");
    put("ColMaxLength", col, 64);
    put("ColTextHeader", col, "");
    put("ColWidth", col, 960);
    put("ColDataAlignment", col, TColumnAlignment::ColumnLeft);
    put("ColHeaderAlignment", col, TColumnAlignment::ColumnLeft);
}

} // namespace tablio
