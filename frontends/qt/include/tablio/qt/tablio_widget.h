#pragma once

/// `TablioWidget`, the data-entry grid as a Qt widget. A host lays it out like any other widget,
/// sets it up through properties and methods, and connects to its signals. The widget decides
/// nothing: it shows what the core (`tablio::Tablio`) decides and hands the user's actions in.

#include <tablio/tablio.h>

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <string_view>

namespace tablio::qt {

class TablioWidgetPrivate;

/// Rows and columns are the grid's own numbers from 0: row 0 is the header, column 0 the fixed
/// column when there is one. Lengths of rows and columns are twips (15 to a pixel of 1/96 inch), so
/// that they mean the same on every screen.
///
/// The table is ready from the constructor on: what a host fills in before the widget is shown is
/// there when it is shown. When it is first shown and the cursor was not moved yet, the cursor
/// stands on the first data row in primaryColumn.
///
/// Signals carry their arguments by reference, so that a slot can change them where the signal
/// says so. Such a slot must be connected directly (the default on one thread); a queued one hears
/// nothing. A slot may call anything, and may delete the widget.
///
/// Errors. A row or column that the grid does not have throws GridError, a number beyond 16 bits
/// where the control counts in 16 bits throws OverflowError; both are std::exceptions that a C++
/// caller of a method gets. What a slot throws while the user acts on the widget does not cross
/// Qt's event loop: the widget reports it by qCritical() and goes on, with the control in order.
class TablioWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int rows READ rows WRITE setRows STORED false)
    Q_PROPERTY(int cols READ cols WRITE setCols STORED false)
    Q_PROPERTY(int fixedRows READ fixedRows WRITE setFixedRows STORED false)
    Q_PROPERTY(int fixedCols READ fixedCols WRITE setFixedCols STORED false)
    Q_PROPERTY(bool withFixedColumn READ withFixedColumn WRITE setWithFixedColumn STORED false)
    Q_PROPERTY(int primaryColumn READ primaryColumn WRITE setPrimaryColumn STORED false)
    Q_PROPERTY(int checkBoxes READ checkBoxes WRITE setCheckBoxes STORED false)
    Q_PROPERTY(bool gridPopUpMenu READ gridPopUpMenu WRITE setGridPopUpMenu STORED false)
    Q_PROPERTY(int rowMinHeight READ rowMinHeight WRITE setRowMinHeight STORED false)
    Q_PROPERTY(int headerRowHeight READ headerRowHeight WRITE setHeaderRowHeight STORED false)
    Q_PROPERTY(bool wordWrap READ wordWrap WRITE setWordWrap STORED false)
    Q_PROPERTY(QColor backColor READ backColor WRITE setBackColor RESET resetBackColor STORED false)
    Q_PROPERTY(QColor backColorData READ backColorData WRITE setBackColorData RESET
                   resetBackColorData STORED false)
    Q_PROPERTY(QColor foreColorData READ foreColorData WRITE setForeColorData RESET
                   resetForeColorData STORED false)
    Q_PROPERTY(QColor backColorFixed READ backColorFixed WRITE setBackColorFixed RESET
                   resetBackColorFixed STORED false)
    Q_PROPERTY(QColor foreColorFixed READ foreColorFixed WRITE setForeColorFixed RESET
                   resetForeColorFixed STORED false)
    Q_PROPERTY(QColor gridColorData READ gridColorData WRITE setGridColorData RESET
                   resetGridColorData STORED false)
    Q_PROPERTY(QColor gridColorFixed READ gridColorFixed WRITE setGridColorFixed RESET
                   resetGridColorFixed STORED false)
    Q_PROPERTY(QColor backColorMarkRow READ backColorMarkRow WRITE setBackColorMarkRow RESET
                   resetBackColorMarkRow STORED false)
    Q_PROPERTY(QColor foreColorMarkRow READ foreColorMarkRow WRITE setForeColorMarkRow RESET
                   resetForeColorMarkRow STORED false)
    Q_PROPERTY(QColor stripeColor READ stripeColor WRITE setStripeColor RESET resetStripeColor
                   STORED false)
    Q_PROPERTY(QColor checkBoxColor READ checkBoxColor WRITE setCheckBoxColor RESET
                   resetCheckBoxColor STORED false)
    Q_PROPERTY(bool headerFontBold READ headerFontBold WRITE setHeaderFontBold STORED false)
    Q_PROPERTY(EntryRules entryRules READ entryRules WRITE setEntryRules STORED false)
    Q_PROPERTY(int stretchColumn READ stretchColumn WRITE setStretchColumn STORED false)
    Q_PROPERTY(bool checkBoxFrame READ checkBoxFrame WRITE setCheckBoxFrame STORED false)
    Q_PROPERTY(bool tabWalks READ tabWalks WRITE setTabWalks STORED false)
    Q_PROPERTY(int markRow READ markRow WRITE setMarkRow DESIGNABLE false STORED false)
    Q_PROPERTY(bool markStatus READ markStatus DESIGNABLE false STORED false)
    Q_PROPERTY(bool setStatusCell READ statusCell WRITE setStatusCell DESIGNABLE false STORED false)
    Q_PROPERTY(int dataCount READ dataCount DESIGNABLE false STORED false)
    // All that a form stores of the widget; the properties above are parts of it.
    Q_PROPERTY(QByteArray settings READ settings WRITE setSettings DESIGNABLE false)

public:
    /// How a column takes part in data entry.
    enum ColumnStyle {
        ColumnInput = 0,
        ColumnInputWithLookup = 1,
        ColumnFixed = 2,
        ColumnFixedWithAutoNumber = 3,
    };
    Q_ENUM(ColumnStyle)
    /// Which editor a column opens and how its values are read and shown.
    enum ColumnType {
        ColumnString = 0,
        ColumnDecimal = 1,
        ColumnInteger = 2,
        ColumnDate = 3,
        ColumnCombo = 4,
    };
    Q_ENUM(ColumnType)
    /// Case rule of a text column or sign rule of a numeric one: each value has two names.
    enum DataType {
        AllCase = 0,
        UpperCase = 1,
        LowerCase = 2,
        AllValue = 0,
        Positive = 1,
        Negative = 2,
    };
    Q_ENUM(DataType)
    /// Whether a decimal column refuses more decimals than its format shows.
    enum CalculationStyle { NoStyle = 0, CalcStyle = 1 };
    Q_ENUM(CalculationStyle)
    enum ColumnAlignment { ColumnLeft = 1, ColumnCentre = 4, ColumnRight = 7 };
    Q_ENUM(ColumnAlignment)

    /// Which rules typing and moving follow; docs/careful-entry.md says where they differ.
    enum EntryRules { Classic = 0, Careful = 1 };
    Q_ENUM(EntryRules)

    explicit TablioWidget(QWidget *parent = nullptr);
    ~TablioWidget() override;

    /// The control itself, for a host that wants more than the widget offers. It lives as long as
    /// the widget; its face and its host are the widget's own and must stay.
    [[nodiscard]] tablio::Tablio &core() noexcept;
    [[nodiscard]] const tablio::Tablio &core() const noexcept;

    // Settings as a whole.
    /// The table's counts, colours and sizes and all settings of its columns as lines of plain
    /// ASCII text; no data. A row height that follows the font, and what every widget has (its
    /// font, whether it is enabled), are left out.
    [[nodiscard]] QByteArray settings() const;
    /// Makes the table what the text says; what is missing gets its default. A text that cannot be
    /// read (of a later version, say) is reported by qWarning() and in the table's place, changes
    /// nothing, and is what settings() answers until a setting is changed.
    void setSettings(const QByteArray &settings);

    // The table.
    [[nodiscard]] int rows() const { return core().Rows(); }
    /// Header rows included; at most 32,768.
    void setRows(int count) { core().setRows(count); }
    [[nodiscard]] int cols() const { return core().Cols(); }
    /// Fixed columns included. Settings of columns that go away come back with them.
    void setCols(int count) { core().setCols(count); }
    [[nodiscard]] int fixedRows() const { return core().FixedRows(); }
    void setFixedRows(int count) { core().setFixedRows(count); }
    [[nodiscard]] int fixedCols() const { return core().FixedCols(); }
    void setFixedCols(int count) { core().setFixedCols(count); }
    /// Classic at first. An open edit ends.
    [[nodiscard]] EntryRules entryRules() const {
        return static_cast<EntryRules>(core().EntryRules());
    }
    void setEntryRules(EntryRules rules) { core().setEntryRules(static_cast<TEntryRules>(rules)); }
    /// Whether Tab walks the cells in careful entry, rather than leaves the widget.
    [[nodiscard]] bool tabWalks() const { return core().TabWalks(); }
    void setTabWalks(bool walks) { core().setTabWalks(walks); }
    [[nodiscard]] bool withFixedColumn() const { return core().WithFixedColumn(); }
    void setWithFixedColumn(bool fixed) { core().setWithFixedColumn(fixed); }
    /// The column that makes a row a data row.
    [[nodiscard]] int primaryColumn() const { return core().PrimaryColumn(); }
    void setPrimaryColumn(int col) { core().setPrimaryColumn(col); }
    [[nodiscard]] int checkBoxes() const { return core().CheckBoxes(); }
    /// 1 or −1 makes the last column a tick column.
    void setCheckBoxes(int checkBoxes) { core().setCheckBoxes(checkBoxes); }
    [[nodiscard]] bool gridPopUpMenu() const { return core().GridPopUpMenu(); }
    void setGridPopUpMenu(bool offered) { core().setGridPopUpMenu(offered); }

    // Widths.
    /// Makes the column as wide as its longest texts and its header; so does a double click on its
    /// border in the header.
    Q_INVOKABLE void resizeColumnToContents(int col) { core().ResizeColumn(col); }
    Q_INVOKABLE void resizeColumnsToContents() { core().ResizeColumns(); }
    /// The column that takes the room which the others leave; -1 for none.
    [[nodiscard]] int stretchColumn() const { return core().StretchColumn(); }
    void setStretchColumn(int col) { core().setStretchColumn(col); }
    /// The widths of the columns, for the next time that the form is opened. Answers whether they
    /// could be taken, which needs as many columns as there were.
    [[nodiscard]] Q_INVOKABLE QByteArray saveLayout() const {
        return QByteArray::fromStdString(core().Layout());
    }
    Q_INVOKABLE bool restoreLayout(const QByteArray &layout) {
        const std::string text = layout.toStdString();
        core().setLayout(text);
        return core().Layout() == text || core().StretchColumn() >= 0;
    }

    // Looks. The widget's own font and palette are what cells use that nobody styled.
    [[nodiscard]] int rowMinHeight() const { return core().RowMinHeight(); }
    void setRowMinHeight(int twips) { core().setRowMinHeight(twips); }
    [[nodiscard]] int headerRowHeight() const { return core().HeaderRowHeight(); }
    void setHeaderRowHeight(int twips) { core().setHeaderRowHeight(twips); }
    [[nodiscard]] bool wordWrap() const { return core().WordWrap(); }
    void setWordWrap(bool wrap) { core().setWordWrap(wrap); }
    /// False suspends painting, true paints.
    [[nodiscard]] bool statusCell() const { return core().SetStatusCell(); }
    void setStatusCell(bool status) { core().setSetStatusCell(status); }
    Q_INVOKABLE int rowHeight(int row) const { return core().RowHeight(row); }
    Q_INVOKABLE void setRowHeight(int row, int twips) { core().setRowHeight(row, twips); }

    // Colours. A new widget follows its palette in all of them but checkBoxColor. One that is set
    // here stays as it is set, and core() takes system colours, too. An invalid QColor, as the
    // reset functions set it, brings a new widget's colour back.
    [[nodiscard]] QColor backColor() const { return colour("BackColor"); }
    void setBackColor(const QColor &value) { setColour("BackColor", value); }
    [[nodiscard]] QColor backColorData() const { return colour("BackColorData"); }
    void setBackColorData(const QColor &value) { setColour("BackColorData", value); }
    [[nodiscard]] QColor foreColorData() const { return colour("ForeColorData"); }
    void setForeColorData(const QColor &value) { setColour("ForeColorData", value); }
    [[nodiscard]] QColor backColorFixed() const { return colour("BackColorFixed"); }
    void setBackColorFixed(const QColor &value) { setColour("BackColorFixed", value); }
    [[nodiscard]] QColor foreColorFixed() const { return colour("ForeColorFixed"); }
    void setForeColorFixed(const QColor &value) { setColour("ForeColorFixed", value); }
    [[nodiscard]] QColor gridColorData() const { return colour("GridColorData"); }
    void setGridColorData(const QColor &value) { setColour("GridColorData", value); }
    [[nodiscard]] QColor gridColorFixed() const { return colour("GridColorFixed"); }
    void setGridColorFixed(const QColor &value) { setColour("GridColorFixed", value); }
    [[nodiscard]] QColor backColorMarkRow() const { return colour("BackColorMarkRow"); }
    void setBackColorMarkRow(const QColor &value) { setColour("BackColorMarkRow", value); }
    [[nodiscard]] QColor foreColorMarkRow() const { return colour("ForeColorMarkRow"); }
    void setForeColorMarkRow(const QColor &value) { setColour("ForeColorMarkRow", value); }
    [[nodiscard]] QColor stripeColor() const { return colour("StripeColor"); }
    /// Every second data row; the same as backColorData for no stripes.
    void setStripeColor(const QColor &value) { setColour("StripeColor", value); }
    [[nodiscard]] QColor checkBoxColor() const { return colour("CheckBoxColor"); }
    /// The ticks of the last column.
    void setCheckBoxColor(const QColor &value) { setColour("CheckBoxColor", value); }
    /// Whether tick cells show a box around their tick, also where it is not set.
    [[nodiscard]] bool checkBoxFrame() const { return core().CheckBoxFrame(); }
    void setCheckBoxFrame(bool framed) { core().setCheckBoxFrame(framed); }
    [[nodiscard]] bool headerFontBold() const { return core().HeaderFontBold(); }
    void setHeaderFontBold(bool bold) { core().setHeaderFontBold(bold); }
    void resetBackColor() { setBackColor({}); }
    void resetBackColorData() { setBackColorData({}); }
    void resetForeColorData() { setForeColorData({}); }
    void resetBackColorFixed() { setBackColorFixed({}); }
    void resetForeColorFixed() { setForeColorFixed({}); }
    void resetGridColorData() { setGridColorData({}); }
    void resetGridColorFixed() { setGridColorFixed({}); }
    void resetBackColorMarkRow() { setBackColorMarkRow({}); }
    void resetForeColorMarkRow() { setForeColorMarkRow({}); }
    void resetStripeColor() { setStripeColor({}); }
    void resetCheckBoxColor() { setCheckBoxColor({}); }

    // Looks of single cells. Reading one, and writing a font, leaves the cursor there; writing a
    // colour puts it back. No signal goes out.
    Q_INVOKABLE QString cellFont(int row, int col) {
        return QString::fromStdString(core().CellFont(row, col));
    }
    Q_INVOKABLE void setCellFont(int row, int col, const QString &family) {
        core().setCellFont(row, col, family.toStdString());
    }
    Q_INVOKABLE bool cellFontBold(int row, int col) { return core().CellFontBold(row, col); }
    Q_INVOKABLE void setCellFontBold(int row, int col, bool bold) {
        core().setCellFontBold(row, col, bold);
    }
    Q_INVOKABLE bool cellFontItalic(int row, int col) { return core().CellFontItalic(row, col); }
    Q_INVOKABLE void setCellFontItalic(int row, int col, bool italic) {
        core().setCellFontItalic(row, col, italic);
    }
    Q_INVOKABLE int cellFontSize(int row, int col) { return core().CellFontSize(row, col); }
    Q_INVOKABLE void setCellFontSize(int row, int col, int points) {
        core().setCellFontSize(row, col, points);
    }
    Q_INVOKABLE QColor cellBackColor(int row, int col) {
        return shown(core().CellBackColor(row, col));
    }
    Q_INVOKABLE void setCellBackColor(int row, int col, const QColor &colour) {
        core().setCellBackColor(row, col, literal(colour));
    }
    Q_INVOKABLE QColor cellForeColor(int row, int col) {
        return shown(core().CellForeColor(row, col));
    }
    Q_INVOKABLE void setCellForeColor(int row, int col, const QColor &colour) {
        core().setCellForeColor(row, col, literal(colour));
    }
    Q_INVOKABLE void setHeaderBackColor(int col, const QColor &colour) {
        core().SetHeaderBackColor(col, literal(colour));
    }
    Q_INVOKABLE void setHeaderForeColor(int col, const QColor &colour) {
        core().SetHeaderForeColor(col, literal(colour));
    }

    // Cells.
    /// The cell's text; of a numeric column the plain number, "0" where there is none.
    Q_INVOKABLE QString textMatrix(int row, int col) const;
    /// Shows the value by the column's format.
    Q_INVOKABLE void setTextMatrix(int row, int col, const QString &value);
    /// Writes rows of texts at once, the first one into this cell, the others beside and below it.
    /// Rows that are missing below the last one are appended. Where a row has fewer texts than the
    /// first one, the rest is blank; none may have more.
    void setTexts(int row, int col, const QList<QStringList> &texts);
    /// The host's own value of the cell, kept in step with the rows; a null QVariant or "" where
    /// there is none.
    Q_INVOKABLE QVariant cellTag(int row, int col) const;
    Q_INVOKABLE void setCellTag(int row, int col, const QVariant &value);

    // Cells as values with types, whatever the locale and the columns' formats are. Null is an
    // empty cell; else a QString, a qlonglong, a double, a QDate or a bool by the column's type,
    // and of a decimal number that no double holds its text with a point (cell_variant.h). What a
    // column cannot hold throws TypeMismatch, with nothing written.
    [[nodiscard]] Q_INVOKABLE QVariant value(int row, int col) const;
    Q_INVOKABLE void setValue(int row, int col, const QVariant &value);
    [[nodiscard]] Q_INVOKABLE bool isEmpty(int row, int col) const;
    Q_INVOKABLE void clearCell(int row, int col);
    /// All columns from the first one that is not fixed, the tick included.
    [[nodiscard]] Q_INVOKABLE QVariantList rowValues(int row) const;
    /// The same columns; those behind the last value stay as they are.
    Q_INVOKABLE void setRowValues(int row, const QVariantList &values);
    /// Writes rows behind the last one that holds data; what a row has less than the longest is
    /// empty. Answers the first row written.
    int appendRows(const QList<QVariantList> &rows);

    // Columns.
    Q_INVOKABLE tablio::qt::TablioWidget::ColumnStyle colStyle(int col) const {
        return static_cast<ColumnStyle>(core().ColStyle(col));
    }
    Q_INVOKABLE void setColStyle(int col, tablio::qt::TablioWidget::ColumnStyle style) {
        core().setColStyle(col, static_cast<TColumnStyle>(style));
    }
    Q_INVOKABLE tablio::qt::TablioWidget::ColumnType colEditType(int col) const {
        return static_cast<ColumnType>(core().ColEditType(col));
    }
    Q_INVOKABLE void setColEditType(int col, tablio::qt::TablioWidget::ColumnType type) {
        core().setColEditType(col, static_cast<TColumnType>(type));
    }
    Q_INVOKABLE QString colFormat(int col) const {
        return QString::fromStdString(core().ColFormat(col));
    }
    /// A picture such as "###,##0.00"; cells that are already filled keep their text.
    Q_INVOKABLE void setColFormat(int col, const QString &format) {
        core().setColFormat(col, format.toStdString());
    }
    Q_INVOKABLE int colMaxLength(int col) const { return core().ColMaxLength(col); }
    /// Most characters that may be typed; 0 is no limit.
    Q_INVOKABLE void setColMaxLength(int col, int length) { core().setColMaxLength(col, length); }
    Q_INVOKABLE tablio::qt::TablioWidget::DataType colDataType(int col) const {
        return static_cast<DataType>(core().ColDataType(col));
    }
    Q_INVOKABLE void setColDataType(int col, tablio::qt::TablioWidget::DataType type) {
        core().setColDataType(col, static_cast<TDataType>(type));
    }
    Q_INVOKABLE tablio::qt::TablioWidget::CalculationStyle colCalcStyle(int col) const {
        return static_cast<CalculationStyle>(core().ColCalcStyle(col));
    }
    Q_INVOKABLE void setColCalcStyle(int col, tablio::qt::TablioWidget::CalculationStyle style) {
        core().setColCalcStyle(col, static_cast<TCalcStyle>(style));
    }
    Q_INVOKABLE QString colTextHeader(int col) const {
        return QString::fromStdString(core().ColTextHeader(col));
    }
    Q_INVOKABLE void setColTextHeader(int col, const QString &header) {
        core().setColTextHeader(col, header.toStdString());
    }
    Q_INVOKABLE int colWidth(int col) const { return core().ColWidth(col); }
    Q_INVOKABLE void setColWidth(int col, int twips) { core().setColWidth(col, twips); }
    Q_INVOKABLE tablio::qt::TablioWidget::ColumnAlignment colDataAlignment(int col) const {
        return static_cast<ColumnAlignment>(core().ColDataAlignment(col));
    }
    Q_INVOKABLE void setColDataAlignment(int col,
                                         tablio::qt::TablioWidget::ColumnAlignment alignment) {
        core().setColDataAlignment(col, static_cast<TColumnAlignment>(alignment));
    }
    Q_INVOKABLE tablio::qt::TablioWidget::ColumnAlignment colHeaderAlignment(int col) const {
        return static_cast<ColumnAlignment>(core().ColHeaderAlignment(col));
    }
    Q_INVOKABLE void setColHeaderAlignment(int col,
                                           tablio::qt::TablioWidget::ColumnAlignment alignment) {
        core().setColHeaderAlignment(col, static_cast<TColumnAlignment>(alignment));
    }
    /// Sets eight settings of a column at once; what is left out gets the default shown here.
    Q_INVOKABLE void
    setColProperty(int col, const QString &textHeader = {}, int widthTwips = 1000,
                   tablio::qt::TablioWidget::ColumnStyle style = ColumnFixed,
                   tablio::qt::TablioWidget::ColumnType editType = ColumnString,
                   tablio::qt::TablioWidget::ColumnAlignment headerAlignment = ColumnLeft,
                   tablio::qt::TablioWidget::ColumnAlignment dataAlignment = ColumnLeft,
                   int maxLength = 64, const QString &format = {}) {
        core().SetColProperty(
            col, textHeader.toStdString(), widthTwips, static_cast<TColumnStyle>(style),
            static_cast<TColumnType>(editType), static_cast<TColumnAlignment>(headerAlignment),
            static_cast<TColumnAlignment>(dataAlignment), maxLength, format.toStdString());
    }

    // Rows.
    /// Appends a blank row and puts the cursor on it.
    Q_INVOKABLE void addRow() { core().AddRow(); }
    /// Wipes all data; headers stay.
    Q_INVOKABLE void tableClear() { core().TableClear(); }
    /// Gives back what the last tableClear() wiped in careful entry, while nothing has been written
    /// since. Answers whether there was something.
    Q_INVOKABLE bool undoTableClear() { return core().UndoTableClear(); }
    /// The last row whose primary column holds text, 0 where none does.
    [[nodiscard]] int dataCount() const { return core().DataCount(); }
    /// Inserts a blank row at the marked row, whatever row says. Without a marked row it marks row
    /// and throws GridError; so does removeRow.
    Q_INVOKABLE void insertRow(int row) { core().InsertRow(row); }
    /// Removes the marked row and appends a blank one.
    Q_INVOKABLE void removeRow(int row) { core().RemoveRow(row); }
    /// Blanks a row except its automatic number.
    Q_INVOKABLE void resetRow(int row) { core().ResetRow(row); }
    /// The first other data row with the primary text of this row; −1 for none.
    Q_INVOKABLE int findDuplicatePrimaryColumn(int row) const {
        return core().FindDuplicatePrimaryColumn(row);
    }
    /// Puts the cursor on a cell and the keyboard focus on the grid.
    Q_INVOKABLE void focusCell(int row, int col) { core().CellFocus(row, col); }

    // Marks, ticks, choices, lookups.
    /// The marked row, −1 for none. Writing it marks nothing.
    [[nodiscard]] int markRow() const { return core().MarkRow(); }
    void setMarkRow(int row) { core().setMarkRow(row); }
    [[nodiscard]] bool markStatus() const { return core().MarkStatus(); }
    /// Marks the row of the cell last entered, or unmarks the marked row.
    Q_INVOKABLE void markActiveRow() { core().MarkActiveRow(); }
    /// Ticks or clears a row's box and leaves the cursor there; nothing without a tick column.
    Q_INVOKABLE void check(int row, bool checked) { core().Check(row, checked); }
    Q_INVOKABLE bool checked(int row) const { return core().Checked(row); }
    /// The control has one list of choices, which a host fills before each edit of a combo column.
    Q_INVOKABLE void comboClear() { core().ComboClear(); }
    Q_INVOKABLE void comboAddItem(const QString &item) { core().ComboAddItem(item.toStdString()); }
    /// The position in the list of a combo cell's text; −1 for none and for other columns.
    Q_INVOKABLE int listIndex(int row, int col) { return core().ListIndex(row, col); }
    /// The value found for a cell after editLookup, at once or later.
    Q_INVOKABLE void setLookupResult(int row, int col, const QString &value) {
        core().setLookupResult(row, col, value.toStdString());
    }

    // The open edit. A widget that is hidden, also with its window, ends it first; one that is
    // destroyed does not. A window that is asked to close, and a command that saves, call commit().
    /// Ends it as a click elsewhere would. Answers whether what was typed stands in its cell: false
    /// when a slot refused it, or it was no date; true where no edit was open.
    Q_INVOKABLE bool commit() { return core().Commit(); }
    /// Ends it as Esc would.
    Q_INVOKABLE void cancelEdit() { core().CancelEdit(); }
    [[nodiscard]] Q_INVOKABLE bool isEditing() const { return core().IsEditing(); }
    /// The cell last entered; −1 in a table that has none.
    [[nodiscard]] Q_INVOKABLE int currentRow() const { return core().CurrentRow(); }
    [[nodiscard]] Q_INVOKABLE int currentColumn() const { return core().CurrentCol(); }

    /// What the control last asked of its host's form: whether the form may see keys first. A Qt
    /// form does that by event filters of its own, so the widget only keeps the answer.
    Q_INVOKABLE bool hostKeyPreview() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Opens the property pages "General", "Columns" and "Entry" for this widget, or raises them;
    /// an open edit ends. They block the widget's window, not the caller. Data stays with its
    /// column, and Cancel gives back what was.
    void showPropertyPages();

Q_SIGNALS:
    /// An edit is about to start. Set cancel to keep the editor closed.
    void editPreValidation(int &row, int &col, bool &cancel);
    /// The text of the open editor has changed.
    void editOnChange(int &row, int &col, QString &onEdit);
    /// An edit has ended and the cell holds newData. Turning valid from true to false puts the old
    /// text back. lastKey is the last key code or character that the editor saw.
    void editPostValidation(int &row, int &col, bool &valid, QString &oldData, QString &newData,
                            int &lastKey);
    /// The operator asks for a value; answer by setLookupResult().
    void editLookup(int &row, int &col);
    /// The cursor has arrived at a cell, or the grid has gained the focus there.
    void cellFocus(int &row, int &col);
    /// A character is about to enter the editor; 0 drops it, another code replaces it.
    void cellKeyPress(int &row, int &col, int &keyAscii);
    /// The row stock or the text being edited has changed.
    void tableChange();
    /// A key went down while no editor is open; keyCode 0 keeps the grid from acting on it.
    void tableKeyDown(int &keyCode, int &shift, int &row, int &col);
    /// The cursor has moved to another row.
    void tableRowChange(int &oldRow, int &newRow);
    /// A cell was double-clicked.
    void doubleClick(int &row, int &col);
    // What has changed in the table, whoever changed it: the operator, the host, a command. They
    // come before the next of the signals above, or when the call that made the change is over.
    /// A data cell holds another text or value, or its tick was set or taken away. Row numbers that
    /// follow from a row's place are not told.
    void cellChanged(int row, int col);
    /// Blank rows have come, the first of which has this number.
    void rowsInserted(int first, int count);
    void rowsRemoved(int first, int count);
    /// All data is wiped.
    void tableCleared();
    /// Any cell may hold something else, and the columns may be others.
    void tableReset();
    /// A property has another value; the name is the control's own, such as "Rows" or "ColStyle".
    /// An empty name, after setSettings() and from the property pages, stands for all of them.
    void propertyChanged(const QString &name);

protected:
    /// Hears of a slot for propertyChanged(); a class that overrides it calls it.
    void connectNotify(const QMetaMethod &signal) override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    friend class HostSignals;
    friend class TablioWidgetPrivate;

    /// Of the member with this name. An invalid colour stands for a new widget's.
    [[nodiscard]] QColor colour(std::string_view name) const;
    void setColour(std::string_view name, const QColor &colour);
    /// As the palette has it now.
    [[nodiscard]] QColor shown(Colour colour) const;
    [[nodiscard]] static Colour literal(const QColor &colour);

    std::unique_ptr<TablioWidgetPrivate> d_;
};

} // namespace tablio::qt
