#pragma once

/// Both property pages of one control, tied together for one dialog with OK, Apply and Cancel. A
/// front end shows the current page and calls apply() for OK and Apply; Cancel needs nothing from
/// here. Going from page to page applies nothing.

#include <tablio/pages/columns_page.h>
#include <tablio/pages/general_page.h>

namespace tablio {

class PropertyPages {
public:
    /// The control and the listener must outlive the pages. Nothing is loaded before show(). What
    /// the control's fixed columns hold stays.
    PropertyPages(Tablio &control, PageListener &listener);

    General general;
    Columns columns;

    /// Brings a page (one of the two above) to the front. It is loaded when it has not been shown
    /// before; later it keeps what the user has done on it.
    void show(PropertyPage &page);
    /// Whether Apply is enabled. OK and Cancel always are.
    [[nodiscard]] bool canApply() const noexcept { return general.Changed() || columns.Changed(); }
    /// Writes back each page that is marked changed. Columns then shows what General has made of
    /// its column.
    void apply();
    /// Holds what other pages hold, which are another control's: apply() does to this control what
    /// theirs does to the other.
    void copyFrom(const PropertyPages &other);
    /// The control was changed by somebody else: loads again the pages that have been shown. What
    /// was not applied is lost.
    void selectionChanged();

private:
    void reloadColumns();

    bool generalIsLoaded_ = false;
    bool columnsIsLoaded_ = false;
};

} // namespace tablio
