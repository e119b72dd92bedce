#include <tablio/pages/columns_page.h>

#include "control/call.h"
#include "control/inside.h"
#include "model/text/number_text.h"
#include "pages/column_history.h"
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
/// Twips.
constexpr int newColumnWidth = 960;

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

Columns::~Columns() = default;

void Columns::connect() {
    txtIndex.onChange = [this] { setChanged(true); };
    txtIndex.onLostFocus = [this] { goToIndex(); };
    for (PageTextBox *box : {&txtColTextHeader, &txtColFormat, &txtColWidth})
        box->onChange = [this, box] { edited(*box); };
    for (PageList *list : {&cboColumnStyle, &cboDataType, &cboCalcStyle, &cboColDataAlignment,
                           &cboColHeaderAlignment})
        list->onClick = [this, list] { edited(*list); };
    txtColMaxLength.onChange = [this] { txtColMaxLength_Change(); };
    cboColEditType.onClick = [this] { cboColEditType_Click(); };
    for (std::size_t button = 0; button < 2; ++button) {
        const int Index = static_cast<int>(button);
        cmdIndex[button].onClick = [this, Index] { cmdIndex_Click(Index); };
        cmdCommand[button].onClick = [this, Index] { cmdCommand_Click(Index); };
    }
}

void Columns::edited(const PageControl &control) {
    edited_.insert(control.name());
    setChanged(true);
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
    shown_ = i;
    edited_.clear();
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
    for (const auto &[list, property] : {std::pair(&cboColDataAlignment, "ColDataAlignment"),
                                         std::pair(&cboColHeaderAlignment, "ColHeaderAlignment")}) {
        // The names are captured as they are: a compiler of ours knows no other way.
        attempt([&, list = list, property = property] {
            put(property, i, alignmentOf(*list, property, i));
        });
    }
    edited_.clear();
    setChanged(false);
}

int Columns::alignmentOf(const PageList &list, std::string_view property, int col) {
    const int held = get(property, col).toLong();
    const int item = itemOfAlignment(held);
    // The list has three alignments. One that it only shows as the last of them stays.
    const bool isSeen = item == list.ListIndex() && !edited_.contains(list.name());
    return isSeen ? held : alignmentOfItem(list.ListIndex());
}

void Columns::goToIndex() {
    const int named = std::max(index(), 0);
    const bool isShown = shown_ >= 0 && std::min(named, Cols() - 1) == shown_;
    if (shown_ >= 0 && !isShown && !edited_.empty()) {
        (void)history();
        txtIndex.setText(std::to_string(shown_));
        ApplyChanges();
    }
    txtIndex.setText(std::to_string(isShown ? shown_ : named));
    if (isShown)
        return;
    SelectionChanged();
    // Loading brings an index that is too great into range after it has asked where it can go.
    SelectionChanged();
}

ColumnHistory &Columns::history() {
    if (!history_)
        history_ = std::make_unique<ColumnHistory>(control_);
    return *history_;
}

void Columns::keepChanges() noexcept { history_.reset(); }

void Columns::takeBack() {
    if (const std::unique_ptr<ColumnHistory> history = std::move(history_))
        history->takeBack();
}

void Columns::copyFrom(const Columns &other) {
    PropertyPage::copyFrom(other);
    shown_ = other.shown_;
    edited_ = other.edited_;
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
    edited(cboColEditType);
}

void Columns::txtColMaxLength_Change() {
    if (leadingNumber(txtColMaxLength.Text()) > greatestMaxLength)
        txtColMaxLength.setText(std::to_string(greatestMaxLength));
    edited(txtColMaxLength);
}

void Columns::cmdIndex_Click(int Index) {
    (void)history();
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
    const Call control(Inside::shared(control_));
    control->session.EndCellEdit();
    ColumnHistory &history = this->history();
    // The place of the new column among the cells.
    int place = i == -1 ? 0 : std::max(i, 0) + 1;
    {
        CarriedCells cells(control->state, control->marker, control->rows);
        const int last = cells.Cols() - 1;
        attempt([this] { put("Cols", Cols() + 1); });
        attempt([&] {
            for (int j = Cols() - 1; j >= std::max(i, 0) + 1; --j)
                copySettings(j - 1, j, calcStyle);
        });
        setNewColumn(i + 1, 1, calcStyle);
        if (i == last && control->state.isCheckCell({0, i + 1})) {
            // The last column is that of the check boxes, and stays the last.
            place = i;
            put("ColWidth", i + 1, get("ColWidth", i));
            put("ColWidth", i, newColumnWidth);
        }
        place = std::min(place, cells.Cols());
        if (Cols() > cells.Cols()) {
            cells.insertCol(place);
            movePrimaryColumn(place, 1);
        } else {
            place = -1;
        }
    }
    if (place >= 0)
        history.inserted(place);
    cmdIndex_Click(1);
}

void Columns::removeColumn() {
    const int i = index();
    const Call control(Inside::shared(control_));
    control->session.EndCellEdit();
    ColumnHistory &history = this->history();
    const bool isCheckColumn = control->state.isCheckCell({0, i});
    CarriedCells::Column removed;
    int place = -1;
    {
        CarriedCells cells(control->state, control->marker, control->rows);
        // Every other setting moves one column to the left, the calculation styles stay.
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
        // The column before it is none of check boxes.
        if (isCheckColumn)
            put("CheckBoxes", 0);
        if (Cols() < cells.Cols()) {
            place = i >= 0 && i < cells.Cols() ? i : cells.Cols() - 1;
            removed = cells.takeCol(place);
            movePrimaryColumn(place + 1, -1);
        }
    }
    if (place >= 0)
        history.removed(place, std::move(removed));
    // What the page shows is gone; applying it would overwrite the column that has moved here.
    SelectionChanged();
}

void Columns::movePrimaryColumn(int at, int by) {
    attempt([&] {
        const int primary = get("PrimaryColumn").toLong();
        const int last = Cols() - 1 - std::abs(get("CheckBoxes").toLong());
        // Beside a fixed first column it is another one.
        const int first = get("WithFixedColumn").toLong() != 0 && last > 0 ? 1 : 0;
        const int moved = primary >= at ? std::max(primary + by, first) : primary;
        if (const int now = std::min(moved, std::max(last, 0)); now != primary)
            put("PrimaryColumn", now);
    });
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
    put("ColWidth", col, newColumnWidth);
    put("ColDataAlignment", col, TColumnAlignment::ColumnLeft);
    put("ColHeaderAlignment", col, TColumnAlignment::ColumnLeft);
}

} // namespace tablio
