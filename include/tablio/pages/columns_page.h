#pragma once

/// The property page `Columns`: the settings of one column at a time, and buttons that insert and
/// remove columns at once. Front ends show it, design tools edit a control with it. The column it
/// edits is the one that `txtIndex` names, and it keeps no other state.

#include <tablio/pages/property_page.h>

#include <array>
#include <memory>
#include <set>
#include <string_view>

namespace tablio {

class ColumnHistory;

class Columns final : public PropertyPage {
public:
    Columns(Tablio &control, PageListener &listener);
    ~Columns() override;

    /// Loads the column that txtIndex names; leaves the page marked changed.
    void SelectionChanged() override;
    void ApplyChanges() override;
    /// The user has done with the index box: what was edited stays with the column that the page
    /// shows, then the one that the box names is loaded.
    void goToIndex();
    /// Gives back the columns, with their data, as they were before the buttons and goToIndex()
    /// changed any; keepChanges() makes that the state of now.
    void takeBack();
    void keepChanges() noexcept;
    void copyFrom(const Columns &other);
    /// The column that the page edits; it may be none that the control has.
    [[nodiscard]] int index() const;

    /// Counted from 0, the check-box column included.
    PageTextBox txtIndex{"txtIndex", "Index", listener_};
    /// To the previous and to the next column.
    std::array<PageButton, 2> cmdIndex{
        {{"cmdIndex(0)", "&Previous", listener_}, {"cmdIndex(1)", "&Next", listener_}}};
    /// Insert behind this column, and remove it.
    std::array<PageButton, 2> cmdCommand{
        {{"cmdCommand(0)", "&Insert", listener_}, {"cmdCommand(1)", "&Remove", listener_}}};
    PageTextBox txtColTextHeader{"txtColTextHeader", "ColTextHeader", listener_};
    PageList cboColumnStyle{
        "cboColumnStyle",
        "ColStyle",
        listener_,
        {"ColumnInput", "ColumnInputWithLookup", "ColumnFixed", "ColumnFixedWithAutoNumber"}};
    PageList cboColEditType{
        "cboColEditType",
        "ColEditType",
        listener_,
        {"ColumnString", "ColumnDecimal", "ColumnInteger", "ColumnDate", "ColumnCombo"}};
    /// What these two offer follows the edit kind.
    PageList cboDataType{"cboDataType", "ColDataType", listener_};
    PageList cboCalcStyle{"cboCalcStyle", "ColCalcStyle", listener_};
    PageTextBox txtColFormat{"txtColFormat", "ColFormat", listener_};
    PageTextBox txtColMaxLength{"txtColMaxLength", "ColMaxLength", listener_,
                                PageKeys::WholeNumber};
    /// Twips.
    PageTextBox txtColWidth{"txtColWidth", "ColWidth:", listener_, PageKeys::WholeNumber};
    PageList cboColDataAlignment{"cboColDataAlignment",
                                 "ColDataAlignment",
                                 listener_,
                                 {"1 - Left Justify", "4 - Centre Justify", "7 - Right Justify"}};
    PageList cboColHeaderAlignment{"cboColHeaderAlignment",
                                   "ColHeaderAlignment",
                                   listener_,
                                   {"1 - Left Justify", "4 - Centre Justify", "7 - Right Justify"}};

private:
    void connect();
    /// The user, or a rule, has changed what this control holds.
    void edited(const PageControl &control);
    [[nodiscard]] ColumnHistory &history();
    /// The primary column goes with its column.
    void movePrimaryColumn(int at, int by);
    [[nodiscard]] int alignmentOf(const PageList &list, std::string_view property, int col);
    void cboColEditType_Click();
    void txtColMaxLength_Change();
    void cmdIndex_Click(int Index);
    void cmdCommand_Click(int Index);
    void insertColumn();
    void removeColumn();

    [[nodiscard]] int Cols();
    void copySettings(int from, int to, std::string_view calcStyleName);
    void setNewColumn(int col, int dataType, std::string_view calcStyleName);

    /// The column that is loaded; −1 for none.
    int shown_ = -1;
    /// What was changed since then.
    std::set<std::string> edited_;
    std::unique_ptr<ColumnHistory> history_;
};

} // namespace tablio
