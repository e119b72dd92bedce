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
}

void PropertyPages::apply() {
    // Columns that were inserted or removed on the other page must not be undone here.
    if (general.Changed()) {
        general.followColumnCount();
        general.ApplyChanges();
    }
    if (columns.Changed())
        columns.ApplyChanges();
}

void PropertyPages::selectionChanged() {
    if (generalIsLoaded_)
        general.SelectionChanged();
    if (columnsIsLoaded_)
        columns.SelectionChanged();
}

} // namespace tablio
