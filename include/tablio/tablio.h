#pragma once

/// `Tablio`, the data-entry grid as a host holds it. It owns the whole control and forwards; a face
/// shows it and a `HostEvents` hears it. Not thread-safe: everything runs on the user interface's
/// thread. Destroying it is allowed at any time, also from inside an event.

#include <tablio/errors.h>
#include <tablio/face.h>
#include <tablio/host_events.h>
#include <tablio/input.h>
#include <tablio/screen.h>
#include <tablio/table_notices.h>
#include <tablio/tmatrix.h>
#include <tablio/types.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tablio {

struct Inside;
class PropertyBag;
class Witness;

/// Rows and columns are the grid's own numbers from 0: row 0 is the header, column 0 the fixed
/// column when there is one. Lengths are twips. Each setter of a property tells the face the
/// property's name afterwards. A row or column that the grid does not have throws GridError, a
/// number beyond 16 bits where the control counts in 16 bits throws OverflowError; either way
/// nothing has changed.
class Tablio {
public:
    Tablio();
    ~Tablio();
    Tablio(const Tablio &) = delete;
    Tablio &operator=(const Tablio &) = delete;

    // Partners. Both may be null and must live until they are replaced or the control is gone.
    void setFace(Face *face);
    /// Null for a control without one.
    [[nodiscard]] Face *face() const noexcept;
    void setHost(HostEvents *host);
    /// Hears of every change of the table, the host's own ones, too.
    void setNotices(TableNotices *notices);
    /// Hears what the user does and what the host is told, for a recorder.
    void setWitness(Witness *witness);
    /// What a face tells the control.
    [[nodiscard]] Input &input() noexcept { return input_; }
    /// What a face shows.
    [[nodiscard]] const Screen &screen() const noexcept { return screen_; }

    // Lifecycle. A container calls InitProperties for a control that is new, then Show each time it
    // is first shown. Show starts with a cleared table and the cursor on its first data cell.
    void InitProperties();
    /// Loads a control that was saved, in place of InitProperties. A value that is missing gets its
    /// default; one that does not fit is skipped. Throws nothing.
    void ReadProperties(const PropertyBag &bag);
    /// Stores what ReadProperties loads; a value that the bag refuses is skipped.
    void WriteProperties(PropertyBag &bag) const;
    void Show();

    // Without a container. The face makes the control ready at once; what a host fills in before
    // the control appears stays.
    /// InitProperties, colours that follow the platform's theme, and Show.
    void startThemed();
    /// Like WriteProperties, but for what every control of the face has: whether it is enabled, and
    /// a row height that follows the text.
    void saveSettings(PropertyBag &bag) const;
    /// Like ReadProperties, for a control that runs: the data stays, cells look as the settings
    /// say, and the face hears that any property may have changed.
    void loadSettings(const PropertyBag &bag);

    // The table.
    [[nodiscard]] int Rows() const;
    /// Header rows included; at most 32,768.
    void setRows(int count);
    [[nodiscard]] int Cols() const;
    /// Fixed columns included. Settings of columns that go away come back with them.
    void setCols(int count);
    [[nodiscard]] int FixedRows() const;
    void setFixedRows(int count);
    [[nodiscard]] int FixedCols() const;
    void setFixedCols(int count);
    /// Classic at first; docs/careful-entry.md says where careful entry differs. An open edit ends.
    [[nodiscard]] TEntryRules EntryRules() const;
    void setEntryRules(TEntryRules rules);
    /// Whether Tab and Shift+Tab walk the cells in careful entry (True at first); else, and in
    /// classic entry, they leave the control.
    [[nodiscard]] bool TabWalks() const;
    void setTabWalks(bool walks);
    [[nodiscard]] bool WithFixedColumn() const;
    void setWithFixedColumn(bool fixed);
    /// The column that makes a row a data row; not checked against Cols.
    [[nodiscard]] int PrimaryColumn() const;
    void setPrimaryColumn(int col);
    [[nodiscard]] int CheckBoxes() const;
    /// 1 or −1 makes the last column a tick column.
    void setCheckBoxes(int checkBoxes);
    [[nodiscard]] bool GridPopUpMenu() const;
    void setGridPopUpMenu(bool offered);
    /// False also while the calendar lies over the grid.
    [[nodiscard]] bool Enabled() const;
    void setEnabled(bool enabled);

    // Cells.
    /// The cell's text; of a numeric column the plain number, "0" where there is none.
    [[nodiscard]] std::string TextMatrix(int Row, int Col) const;
    /// Shows the value by the column's format.
    void setTextMatrix(int Row, int Col, std::string_view Value);
    /// Writes a block of texts, Cols of them a row, as setTextMatrix() would one by one: the first
    /// one into this cell, the others beside and below it. Rows that are missing below the last one
    /// are appended, which ends an open edit and raises TableChange. Painted and told once.
    void setTexts(int Row, int Col, int Cols, std::span<const std::string_view> Texts);
    /// The host's own values, kept in step with the rows.
    [[nodiscard]] std::shared_ptr<TMatrix> CellTag() const;
    void setCellTag(std::shared_ptr<TMatrix> tags);

    // Columns.
    [[nodiscard]] TColumnStyle ColStyle(int Index) const;
    /// Writing ColumnFixedWithAutoNumber numbers the rows at once.
    void setColStyle(int Index, TColumnStyle style);
    [[nodiscard]] TColumnType ColEditType(int Index) const;
    void setColEditType(int Index, TColumnType type);
    [[nodiscard]] std::string ColFormat(int Index) const;
    /// A picture such as "###,##0.00"; cells that are already filled keep their text.
    void setColFormat(int Index, std::string_view format);
    [[nodiscard]] int ColMaxLength(int Index) const;
    /// Most characters that may be typed; 0 is no limit.
    void setColMaxLength(int Index, int length);
    [[nodiscard]] TDataType ColDataType(int Index) const;
    void setColDataType(int Index, TDataType type);
    [[nodiscard]] TCalcStyle ColCalcStyle(int Index) const;
    void setColCalcStyle(int Index, TCalcStyle style);
    [[nodiscard]] std::string ColTextHeader(int Index) const;
    void setColTextHeader(int Index, std::string_view header);
    [[nodiscard]] Twips ColWidth(int Index) const;
    void setColWidth(int Index, Twips width);
    [[nodiscard]] TColumnAlignment ColDataAlignment(int Index) const;
    void setColDataAlignment(int Index, TColumnAlignment alignment);
    [[nodiscard]] TColumnAlignment ColHeaderAlignment(int Index) const;
    void setColHeaderAlignment(int Index, TColumnAlignment alignment);
    /// Sets eight settings of a column at once; what is left out gets the default shown here.
    void SetColProperty(int ColIndex, std::string_view NewColTextHeader = {},
                        Twips NewColWidth = 1000,
                        TColumnStyle NewColStyle = TColumnStyle::ColumnFixed,
                        TColumnType NewColEditType = TColumnType::ColumnString,
                        TColumnAlignment NewColHeaderAlignment = TColumnAlignment::ColumnLeft,
                        TColumnAlignment NewColDataAlignment = TColumnAlignment::ColumnLeft,
                        int NewColMaxlength = 64, std::string_view NewColFormat = {});

    // Sizes and painting.
    /// Makes the column as wide as its longest texts and its header, or all columns.
    void ResizeColumn(int Index);
    void ResizeColumns();
    /// The column that takes the room which the others leave; -1 for none.
    [[nodiscard]] int StretchColumn() const;
    void setStretchColumn(int col);
    /// The widths of all columns as a text, for the next time that the form is opened. A text that
    /// is none of these, or of another number of columns, changes nothing when it is set.
    [[nodiscard]] std::string Layout() const;
    void setLayout(std::string_view layout);
    [[nodiscard]] Twips RowMinHeight() const;
    void setRowMinHeight(Twips height);
    [[nodiscard]] Twips RowHeight(int Row) const;
    void setRowHeight(int Row, Twips height);
    [[nodiscard]] Twips HeaderRowHeight() const;
    void setHeaderRowHeight(Twips height);
    /// False suspends painting, True paints.
    [[nodiscard]] bool SetStatusCell() const;
    void setSetStatusCell(bool status);

    // Looks of the whole table. A system colour follows the platform's palette.
    [[nodiscard]] Colour BackColor() const;
    void setBackColor(Colour colour);
    [[nodiscard]] Colour BackColorData() const;
    void setBackColorData(Colour colour);
    [[nodiscard]] Colour ForeColorData() const;
    void setForeColorData(Colour colour);
    [[nodiscard]] Colour BackColorFixed() const;
    void setBackColorFixed(Colour colour);
    [[nodiscard]] Colour ForeColorFixed() const;
    void setForeColorFixed(Colour colour);
    [[nodiscard]] Colour GridColorData() const;
    void setGridColorData(Colour colour);
    [[nodiscard]] Colour GridColorFixed() const;
    void setGridColorFixed(Colour colour);
    [[nodiscard]] Colour BackColorMarkRow() const;
    void setBackColorMarkRow(Colour colour);
    [[nodiscard]] Colour ForeColorMarkRow() const;
    void setForeColorMarkRow(Colour colour);
    [[nodiscard]] Colour StripeColor() const;
    /// Paints every second data row in this colour at once.
    void setStripeColor(Colour colour);
    [[nodiscard]] Colour CheckBoxColor() const;
    void setCheckBoxColor(Colour colour);
    /// Whether tick cells show a box around their tick, also where it is not set.
    [[nodiscard]] bool CheckBoxFrame() const;
    void setCheckBoxFrame(bool framed);
    [[nodiscard]] bool HeaderFontBold() const;
    void setHeaderFontBold(bool bold);
    [[nodiscard]] bool WordWrap() const;
    void setWordWrap(bool wrap);
    [[nodiscard]] tablio::Font Font() const;
    void setFont(const tablio::Font &font);

    // Looks of single cells. Reading one, and writing a font, leaves the grid's current cell there;
    // writing a colour puts it back to the cell last entered. No event is raised.
    [[nodiscard]] std::string CellFont(int Row, int Col);
    void setCellFont(int Row, int Col, std::string_view name);
    [[nodiscard]] bool CellFontBold(int Row, int Col);
    void setCellFontBold(int Row, int Col, bool bold);
    [[nodiscard]] bool CellFontItalic(int Row, int Col);
    void setCellFontItalic(int Row, int Col, bool italic);
    /// Points.
    [[nodiscard]] int CellFontSize(int Row, int Col);
    void setCellFontSize(int Row, int Col, int points);
    [[nodiscard]] Colour CellBackColor(int Row, int Col);
    void setCellBackColor(int Row, int Col, Colour colour);
    [[nodiscard]] Colour CellForeColor(int Row, int Col);
    void setCellForeColor(int Row, int Col, Colour colour);
    void SetHeaderBackColor(int Col, Colour NewColor);
    void SetHeaderForeColor(int Col, Colour NewColor);

    // Rows.
    /// Appends a blank row and puts the cursor on it.
    void AddRow();
    /// Inserts a blank row at the marked row, whatever Row says, in exchange for a spare row at the
    /// end if there is one. Without a marked row it marks Row and throws GridError.
    void InsertRow(int Row);
    /// Removes the marked row, whatever Row says, and appends a blank one. Without a marked row it
    /// marks Row and throws GridError.
    void RemoveRow(int Row);
    /// Blanks a row except its automatic number.
    void ResetRow(int Row);
    /// Wipes all data; headers stay. Careful entry forgets the mark, too.
    void TableClear();
    /// Gives back what the last TableClear wiped in careful entry, while nothing has been written
    /// since. Answers whether there was something.
    bool UndoTableClear();
    /// The last row whose primary column holds text, 0 where none does.
    [[nodiscard]] int DataCount() const;
    /// Puts the cursor on a cell and the focus on the grid.
    void CellFocus(int nRow, int nCol);
    /// The first other data row with the primary text of this row, blind to case and to blanks
    /// around it; −1 for none.
    [[nodiscard]] int FindDuplicatePrimaryColumn(int Row) const;

    // Marks and ticks.
    /// The marked row, −1 for none. Writing it marks nothing.
    [[nodiscard]] int MarkRow() const;
    void setMarkRow(int row);
    [[nodiscard]] bool MarkStatus() const;
    /// Marks the row of the cell last entered, or unmarks the marked row.
    void MarkActiveRow();
    /// Ticks or clears a row's box and leaves the cursor there; nothing without a tick column.
    void Check(int Row, bool Checked);
    [[nodiscard]] bool Checked(int Row) const;

    // Choices and lookups.
    /// The control has one list, which a host fills before each edit of a combo column.
    void ComboClear();
    void ComboAddItem(std::string_view NewItem);
    /// The position in the list of a combo cell's text; −1 for none and for other columns.
    [[nodiscard]] int ListIndex(int Row, int Col);
    /// The value found for a cell after EditLookup, at once or later. Nothing happens for a column
    /// that is no lookup column.
    void setLookupResult(int Row, int Col, std::string_view Value);

    // The open edit, for a host that is about to save or to close.
    /// Ends it as a click elsewhere would. Answers whether what was typed stands in its cell: False
    /// when the host refused it, or it was no date; True where no edit was open.
    bool Commit();
    /// Ends it as Esc would.
    void CancelEdit();
    [[nodiscard]] bool IsEditing() const;
    /// The cell last entered; −1 in a table that has none.
    [[nodiscard]] int CurrentRow() const;
    [[nodiscard]] int CurrentCol() const;

private:
    friend struct Inside;
    std::shared_ptr<Control> control_;
    Input input_;
    Screen screen_;
};

} // namespace tablio
