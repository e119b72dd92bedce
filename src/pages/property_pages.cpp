#include <tablio/pages/property_pages.h>

namespace tablio {

PropertyPages::PropertyPages(Tablio &control, PageListener &listener)
    : general(control, listener), columns(control, listener) {}

void PropertyPages::show(PropertyPage &page) {
    bool &isLoaded = &page == &general ? generalIsLoaded_ : columnsIsLoaded_;
    if (!isLoaded)
        page.SelectionChanged();
    else if (&page == &general)
        general.followColumnCount();
    isLoaded = true;
    general.endPageEditing();
}

void PropertyPages::apply() {
    // First: the column that it shows may be the one that the other page makes a check-box column.
    if (columns.Changed())
        columns.ApplyChanges();
    if (!general.Changed())
        return;
    // Columns that were inserted or removed on the other page must not be undone here.
    general.followColumnCount();
    general.ApplyChanges();
    if (columnsIsLoaded_) {
        reloadColumns();
        columns.setChanged(false);
    }
}

void PropertyPages::copyFrom(const PropertyPages &other) {
    general.copyFrom(other.general);
    columns.copyFrom(other.columns);
}

void PropertyPages::selectionChanged() {
    if (generalIsLoaded_)
        general.SelectionChanged();
    if (columnsIsLoaded_)
        reloadColumns();
    general.endPageEditing();
}

void PropertyPages::reloadColumns() {
    columns.SelectionChanged();
    // Loading brings an index that is too great into range after it has asked where it can go.
    columns.SelectionChanged();
}

} // namespace tablio
