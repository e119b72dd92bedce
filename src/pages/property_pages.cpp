#include <tablio/pages/property_pages.h>

#include "control/call.h"
#include "control/inside.h"

#include <tablio/members.h>
#include <tablio/text_bag.h>

#include <utility>

namespace tablio {

namespace {

std::string settingsOf(const Tablio &control) {
    TextBag bag;
    control.saveSettings(bag);
    return bag.text();
}

} // namespace

PropertyPages::PropertyPages(Tablio &control, PageListener &listener)
    : general(control, listener), columns(control, listener), control_(control),
      listener_(listener), known_(settingsOf(control)) {}

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
    change([this] {
        write();
        // There may be more rows.
        Inside::of(control_).rows.RenumberFixedColumns();
    });
}

void PropertyPages::pressed(PageButton &button) {
    change([&] { columns.pressed(button); });
}

void PropertyPages::change(const std::function<void()> &action) {
    const std::shared_ptr<Control> control = Inside::shared(control_);
    {
        const Call call(control);
        const auto quiet = control->state.link.quiet();
        control->rows.watchNumbers();
        action();
        control->rows.blankFormerNumbers();
    }
    if (!hasOtherSettings())
        return;
    // From here on these pages may be gone.
    listener_.settingsChanged();
    control->state.link.propertyChanged(Number::All);
}

bool PropertyPages::hasOtherSettings() {
    return std::exchange(known_, settingsOf(control_)) != known_;
}

void PropertyPages::write() {
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

void PropertyPages::follow() {
    if (!hasOtherSettings())
        return;
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
