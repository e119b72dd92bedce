#pragma once

/// The property page `Entry`: which rules typing and moving follow. Front ends show it, design
/// tools edit a control with it. What it edits is on no other page.

#include <tablio/pages/property_page.h>

namespace tablio {

class Entry final : public PropertyPage {
public:
    Entry(Tablio &control, PageListener &listener);

    /// The page holds what the control holds and is not marked changed.
    void SelectionChanged() override;
    void ApplyChanges() override;

    PageList cboEntryRules{
        "cboEntryRules", "Entry &rules", listener_, {"0 - Classic", "1 - Careful"}};
    /// Can be changed under the careful rules only; under the others Tab never walks.
    PageCheckBox chkTabWalks{"chkTabWalks", "&Tab walks the cells", listener_};
};

} // namespace tablio
