#pragma once

/// The property page `General`: counts, row heights, the primary column and the switches of the
/// whole table. Front ends show it, design tools edit a control with it. It checks what its boxes
/// say against each other; what the control refuses is skipped.

#include <tablio/pages/page_editing.h>
#include <tablio/pages/property_page.h>

#include <optional>
#include <string>

namespace tablio {

class General final : public PropertyPage {
public:
    General(Tablio &control, PageListener &listener);

    /// Also switches page editing on, until the page goes or the control is shown. The page holds
    /// what the control holds and is not marked changed.
    void SelectionChanged() override;
    void ApplyChanges() override;
    /// The control holds data, which has to stay.
    void endPageEditing() noexcept { editing_.reset(); }
    /// The column count, and with it the primary column, may have changed elsewhere: shows it,
    /// unless the user has typed another.
    void followColumnCount();
    /// Writes the menu's tick alone, which marks no change.
    void applyMenu();
    void copyFrom(const General &other);

    // Heights are twips.
    PageTextBox txtRows{"txtRows", "&Rows", listener_, PageKeys::WholeNumber};
    PageSpinner RowUpDown{"RowUpDown", listener_, 2, 32768};
    /// Data columns only, without the column of check boxes.
    PageTextBox txtCols{"txtCols", "Colum&ns", listener_, PageKeys::WholeNumber};
    PageSpinner ColUpDown{"ColUpDown", listener_, 1, 32766};
    PageTextBox txtHeaderRowHeight{"txtHeaderRowHeight", "&Header row height (twips)", listener_,
                                   PageKeys::WholeNumber};
    PageTextBox txtRowMinHeight{"txtRowMinHeight", "&Minimum row height (twips)", listener_,
                                PageKeys::WholeNumber};
    PageTextBox txtPrimaryColumn{"txtPrimaryColumn", "&Primary column", listener_,
                                 PageKeys::WholeNumber};
    PageCheckBox chkCheckboxes{"chkCheckboxes", "&Checkboxes", listener_};
    PageCheckBox chkHeaderFontBold{"chkHeaderFontBold", "HeaderFontBold", listener_};
    PageCheckBox chkWordWrap{"chkWordWrap", "Word&Wrap", listener_};
    PageCheckBox chkGridPopUpMenu{"chkGridPopUpMenu", "&Grid PopUpMenu", listener_};
    PageCheckBox chkWithFixedColumn{"chkWithFixedColumn", "WithFixedColumn", listener_};

private:
    void connect();
    void txtCols_Change();
    void txtCols_LostFocus();
    /// Where there are columns to scroll beside it.
    void offerFixedColumn();
    void txtPrimaryColumn_Change();
    void chkWithFixedColumn_Click();
    [[nodiscard]] std::string dataColumns();
    /// Page and control agree on the columns.
    void agree();
    /// A column that there is none of any more is followed by the last one.
    void followByPrimaryColumn();
    void putCols();

    std::optional<PageEditing> editing_;
    /// What txtCols and txtPrimaryColumn showed when page and control last agreed.
    std::string agreedCols_;
    std::string agreedPrimary_;
};

} // namespace tablio
