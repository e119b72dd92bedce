#include <tablio/pages/entry_page.h>

#include <tablio/types.h>

namespace tablio {

Entry::Entry(Tablio &control, PageListener &listener) : PropertyPage("Entry", control, listener) {
    setControls({&cboEntryRules, &chkTabWalks});
    cboEntryRules.onClick = [this] {
        chkTabWalks.setEnabled(cboEntryRules.ListIndex() == static_cast<int>(TEntryRules::Careful));
        setChanged(true);
    };
    chkTabWalks.onClick = [this] { setChanged(true); };
}

void Entry::SelectionChanged() {
    attempt([this] { cboEntryRules.setListIndex(get("EntryRules").toLong()); });
    attempt([this] { chkTabWalks.setValue(get("TabWalks").toLong() & 1); });
    setChanged(false);
}

void Entry::ApplyChanges() {
    put("EntryRules", cboEntryRules.ListIndex());
    put("TabWalks", chkTabWalks.isTicked());
    setChanged(false);
}

} // namespace tablio
