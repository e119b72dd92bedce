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
    : general(control, listener), columns(control, listener), entry(control, listener),
      control_(control), listener_(listener), known_(settingsOf(control)) {}

bool &PropertyPages::isLoaded(const PropertyPage &page) {
    return &page == &general   ? generalIsLoaded_
           : &page == &columns ? columnsIsLoaded_
                               : entryIsLoaded_;
}

void PropertyPages::show(PropertyPage &page) {
    if (!std::exchange(isLoaded(page), true))
        page.SelectionChanged();
    else if (&page == &general)
        general.followColumnCount();
    general.endPageEditing();
}

void PropertyPages::apply() {
    change([this] {
        write();
        // There may be more rows.
        Inside::of(control_).rows.RenumberFixedColumns();
        columns.keepChanges();
    });
}

void PropertyPages::pressed(PageButton &button) {
    quietly([this] { columns.goToIndex(); });
    change([&] { columns.pressed(button); });
}

void PropertyPages::takeBack() {
    change([this] { columns.takeBack(); });
}

void PropertyPages::goToIndex() {
    quietly([this] { columns.goToIndex(); });
}

void PropertyPages::quietly(const std::function<void()> &action) {
    const Call control(Inside::shared(control_));
    const auto quiet = control->state.link.quiet();
    control->rows.watchNumbers();
    action();
    control->rows.blankFormerNumbers();
}

void PropertyPages::change(const std::function<void()> &action) {
    quietly(action);
    tell();
}

void PropertyPages::tell() {
    const std::shared_ptr<Control> control = Inside::shared(control_);
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
    if (columns.Changed()) {
        if (columnsIsLoaded_)
            columns.goToIndex();
        columns.ApplyChanges();
    }
    if (entry.Changed())
        entry.ApplyChanges();
    if (!general.Changed()) {
        if (generalIsLoaded_)
            general.applyMenu();
        return;
    }
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
    if (entryIsLoaded_)
        entry.SelectionChanged();
    general.endPageEditing();
}

void PropertyPages::reloadColumns() {
    columns.SelectionChanged();
    // Loading brings an index that is too great into range after it has asked where it can go.
    columns.SelectionChanged();
}

} // namespace tablio
