#include "session.h"

#include "control/inside.h"

#include <algorithm>

namespace tablio::fuzz {

namespace {

/// What a throwing host throws.
struct HostError {};

constexpr std::array<KeyCode, 24> keys{Key::Back, Key::Tab, Key::Enter,    Key::Escape, Key::Space,
                                       Key::Left, Key::Up,  Key::Right,    Key::Down,   Key::PageUp,
                                       Key::Home, Key::End, Key::PageDown, Key::Insert, Key::Delete,
                                       Key::A,    Key::C,   Key::V,        Key::X,      Key::Z,
                                       Key::Menu, Key::F2,  Key::F4,       Key::F10};
constexpr std::array<const char *, 16> typed{
    "1", "2", "-", ".", ",", "a", "B", "x", "/", "5", " ", "0", "\u0663", "\U0001F600", "12", "Bo"};
constexpr std::array<const char *, 12> pasted{
    "a\tb\n1\t2", "5/3/2004",      "1,234.5", "Box 1",    "\t\t",  "2010-12-05 08:00",
    "-5",         "\"q\"\"x\"\tz", "",        "\xff\xc0", "1e999", "a\r\n\r\nb"};

std::string at(int row, int col) { return std::to_string(row) + "," + std::to_string(col); }

} // namespace

Session::Session(Bytes &bytes, SessionFace &face)
    : bytes_(bytes), mood_(static_cast<Mood>(bytes.below(5))), face_(face),
      table_(std::make_unique<Tablio>()) {
    setUp();
}

void Session::setUp() {
    Tablio &table = *table_;
    if (bytes_.chance(3))
        face_.format = {.decimalSign = ",", .groupSign = "."};
    table.setFace(&face_);
    table.InitProperties();
    table.setCols(6);
    table.setRows(8);
    for (int col = 0; col < table.Cols(); ++col) {
        table.setColEditType(col, static_cast<TColumnType>(bytes_.below(5)));
        table.setColStyle(col, static_cast<TColumnStyle>(bytes_.chance(3) ? bytes_.below(4) : 0));
        table.setColDataType(col, static_cast<TDataType>(bytes_.below(3)));
        if (bytes_.chance(4))
            table.setColMaxLength(col, bytes_.below(6));
        if (bytes_.chance(4))
            table.setColFormat(col, "#,##0.00");
    }
    if (bytes_.chance(2))
        table.setEntryRules(TEntryRules::Careful);
    table.setCheckBoxes(bytes_.below(2));
    table.setWithFixedColumn(bytes_.chance(2));
    table.setPrimaryColumn(bytes_.below(2));
    for (const char *item : {"Box 1", "Box 10", "Bag"})
        table.ComboAddItem(item);
    table.input().resized(9000, 4500);
    table.Show();
    table.input().focusEntered();
    table.setHost(this);
}

void Session::play() {
    while (!bytes_.atEnd() && table_) {
        try {
            step();
        } catch (const Error &) {
        } catch (const HostError &) {
        }
        depth_ = 0;
        if (table_)
            checkOrder();
    }
}

void Session::step() {
    if (!table_)
        return;
    if (depth_ == 0 && (mood_ == Mood::Quiet || mood_ == Mood::Refusing) && bytes_.chance(4))
        typeInto();
    else
        act(bytes_.below(32));
}

void Session::act(int what) {
    Tablio &table = *table_;
    Input &input = table.input();
    const auto editor = table.screen().editor();
    const EditNumber edit = editor ? editor->edit : 0;
    switch (what) {
    case 0:
    case 1:
    case 2:
    case 3:
        return input.typeText(bytes_.pick(typed));
    case 4:
    case 5:
    case 6:
    case 7:
    case 8: {
        const KeyCode key =
            bytes_.chance(32) ? static_cast<KeyCode>(bytes_.number()) : bytes_.pick(keys);
        input.keyDown(key, static_cast<ShiftState>(bytes_.chance(4) ? bytes_.below(8) : 0));
        return;
    }
    case 9:
        face_.clipboard = bytes_.chance(4) ? bytes_.text(40) : bytes_.pick(pasted);
        input.keyDown(Key::V, Shift::Ctrl);
        return;
    case 10:
    case 11: {
        const auto button = static_cast<MouseButton>(bytes_.chance(4) ? 2 : 1);
        const Twips x = bytes_.chance(16) ? bytes_.number() : bytes_.below(240) * 40;
        const Twips y = bytes_.chance(16) ? bytes_.number() : bytes_.below(120) * 40;
        input.mouseDown(button, x, y);
        if (!table_)
            return;
        if (bytes_.chance(4))
            input.mouseMove(bytes_.below(240) * 40, y);
        return table_ ? input.mouseUp(button, x, y) : void();
    }
    case 12:
        return input.doubleClick(bytes_.below(240) * 40, bytes_.below(120) * 40);
    case 13:
        return table.setRows(bytes_.index(12));
    case 14:
        return table.setCols(std::min(bytes_.index(9), 300));
    case 15:
        return input.menuChosen(static_cast<MenuEntry>(bytes_.below(7)));
    case 16:
        return table.setColWidth(bytes_.index(6), bytes_.chance(3) ? 0 : bytes_.number());
    case 17:
        return table.CellFocus(bytes_.index(8), bytes_.index(6));
    case 18:
        return table.MarkActiveRow();
    case 19:
        return bytes_.chance(2) ? table.RemoveRow(bytes_.index(8))
                                : table.InsertRow(bytes_.index(8));
    case 20:
        input.focusLeft();
        return table_ ? input.focusEntered() : void();
    case 21:
        return table.setLookupResult(bytes_.index(8), bytes_.index(6), bytes_.pick(typed));
    case 22:
        return input.textSettled(edit, bytes_.chance(3) ? bytes_.text(12) : bytes_.pick(typed),
                                 bytes_.index(12), bytes_.index(12));
    case 23:
        return input.buttonPressed(bytes_.chance(2) ? WidgetId::cmdLookup : WidgetId::cmdCalender);
    case 24:
        if (bytes_.chance(4))
            return table.ResetRow(bytes_.index(8));
        return bytes_.chance(8) ? table.TableClear() : table.setFixedRows(bytes_.index(3));
    case 25:
        return bytes_.chance(2) ? input.resized(bytes_.number(), bytes_.number())
                                : input.resized(9000, 4500);
    case 26:
        if (bytes_.chance(2))
            return input.scrollTo(bytes_.number(), bytes_.number());
        input.wheelTurned(static_cast<WheelUnit>(bytes_.below(2)), bytes_.number(),
                          bytes_.number());
        return;
    case 27:
        return input.calendarPicked(edit,
                                    {1900 + bytes_.below(250), bytes_.index(14), bytes_.index(33)});
    case 28:
        return input.calendarMoved(edit, {bytes_.number(), bytes_.number(), bytes_.number()});
    case 29:
        input.comboDropped(edit, bytes_.chance(2));
        return table_ ? input.comboItemChosen(edit, bytes_.index(4)) : void();
    case 30:
        if (bytes_.chance(2))
            return input.calendarSized(bytes_.number(), bytes_.number());
        return bytes_.chance(2) ? input.textHeight(bytes_.number())
                                : table.setRowHeight(bytes_.index(8), bytes_.number());
    default:
        input.keyPress(bytes_.chance(8) ? static_cast<char32_t>(bytes_.number()) : U'7');
        return;
    }
}

/// What an operator types blindly into a cell has to arrive, or the host has refused it.
void Session::typeInto() {
    const CellAddress cell{table_->CurrentRow(), table_->CurrentCol()};
    const bool exists = cell.row > 0 && cell.row < table_->Rows() && cell.col < table_->Cols();
    if (!exists || table_->IsEditing() || !table_->screen().focusOwner())
        return;
    const TColumnType type = table_->ColEditType(cell.col);
    const int length = table_->ColMaxLength(cell.col);
    if (table_->ColDataType(cell.col) != TDataType::AllCase || (length > 0 && length < 4) ||
        table_->screen().facts(cell).isCheckBox)
        return;
    const bool isText = type == TColumnType::ColumnString;
    const bool isDate = type == TColumnType::ColumnDate;
    std::string text;
    if (isDate)
        text = "0" + std::to_string(1 + bytes_.below(9)) + "122004";
    else
        for (int count = isText ? 1 + bytes_.below(4) : 4; count > 0; --count)
            text += static_cast<char>((isText ? 'a' : '1') + bytes_.below(isText ? 26 : 9));
    if (type == TColumnType::ColumnCombo)
        text = "Bag";
    reports_.clear();
    table_->input().typeText(text.substr(0, 1));
    if (!table_->IsEditing())
        return;
    table_->input().typeText(text.substr(1));
    table_->input().keyDown(Key::Enter, Shift::None);
    const auto report = std::find_if(reports_.begin(), reports_.end(),
                                     [&](const Report &each) { return each.cell == cell; });
    expect(report != reports_.end(),
           "nobody was told of \"" + text + "\" in " + at(cell.row, cell.col));
    if (!report->valid)
        return;
    std::string wanted = text;
    if (isDate)
        wanted = text.substr(0, 2) + "/12/2004";
    const std::string held = table_->TextMatrix(cell.row, cell.col);
    expect(held == wanted, "typed \"" + wanted + "\" and found \"" + held + "\"");
}

void Session::checkOrder() {
    Control &control = Inside::of(*table_);
    ControlState &state = control.state;
    const FlexGrid &grid = state.grid;
    const bool isOpen = control.session.isOpen();
    const Widgets &widgets = state.widgets;
    const int shown = int{widgets.txtEdit.Visible()} + int{widgets.cboEdit.Visible()} +
                      int{widgets.txtDateEdit.Visible()};
    expect(shown == (isOpen ? 1 : 0), "an editor without an edit, or the other way round");
    expect(!state.isCalendarOpen() || isOpen, "a calendar without an edit");
    expect(grid.view.Redraw(), "painting is still switched off");
    if (!isOpen)
        return;
    const CellAddress cell = control.session.cell();
    expect(grid.table.hasCell(cell.row, cell.col), "an editor over no cell");
    expect(state.focus.owner() != WidgetId::Grid, "keys go to the grid under an open editor");
    expect(grid.current() == cell, "the editor stands over " + at(cell.row, cell.col) +
                                       ", the cursor on " + at(grid.Row(), grid.Col()));
}

void Session::hears(const std::string &what) {
    log_.push_back(what);
    reacts();
}

void Session::reacts() {
    if (depth_ >= 2 || mood_ == Mood::Quiet || mood_ == Mood::Refusing || !table_)
        return;
    if (!bytes_.chance(mood_ == Mood::Acting ? 4 : 12))
        return;
    ++depth_;
    if (mood_ == Mood::Destroying && bytes_.chance(8)) {
        table_.reset();
    } else {
        try {
            step();
        } catch (const Error &) {
        }
    }
    --depth_;
    if (mood_ == Mood::Throwing && bytes_.chance(4))
        throw HostError();
}

void Session::EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) {
    Cancel = mood_ != Mood::Quiet && bytes_.chance(6);
    hears("pre " + at(Row, Col));
}

void Session::EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) {
    hears("change " + at(Row, Col) + " " + OnEdit);
}

void Session::EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid,
                                 std::string & /*OldData*/, std::string &NewData,
                                 std::int16_t & /*LastKey*/) {
    if (mood_ != Mood::Quiet && bytes_.chance(5))
        Valid = false;
    reports_.push_back({{Row, Col}, Valid, NewData});
    hears("post " + at(Row, Col) + " " + NewData + (Valid ? "" : " no"));
}

void Session::EditLookup(std::int16_t &Row, std::int16_t &Col) { hears("lookup " + at(Row, Col)); }

void Session::CellFocus(std::int16_t &Row, std::int16_t &Col) { hears("focus " + at(Row, Col)); }

void Session::CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) {
    hears("key " + at(Row, Col) + " " + std::to_string(KeyAscii));
}

void Session::TableChange() { hears("change"); }

void Session::TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) {
    hears("row " + at(OldRow, NewRow));
}

} // namespace tablio::fuzz
