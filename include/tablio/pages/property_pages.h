#pragma once

/// The property pages of one control, tied together for one dialog with OK, Apply, Cancel and a
/// preview. A front end shows the current page, hands in what the user does and shows what it
/// hears. Going from page to page applies nothing.

#include <tablio/pages/columns_page.h>
#include <tablio/pages/entry_page.h>
#include <tablio/pages/general_page.h>
#include <tablio/types.h>

#include <functional>
#include <optional>
#include <string>

namespace tablio {

/// What stands in the cells of a preview, in the user's language.
struct SampleWords {
    std::string text = "Sample text";
    std::string choice = "Choice";
};

class PropertyPages {
public:
    /// The control and the listener must outlive the pages. Nothing is loaded before show(). What
    /// the control's fixed columns hold stays.
    PropertyPages(Tablio &control, PageListener &listener);

    General general;
    Columns columns;
    Entry entry;

    /// Brings a page (one of those above) to the front. It is loaded when it has not been shown
    /// before; later it keeps what the user has done on it.
    void show(PropertyPage &page);
    /// Whether Apply is enabled. OK and Cancel always are.
    [[nodiscard]] bool canApply() const noexcept {
        return general.Changed() || columns.Changed() || entry.Changed();
    }

    // What changes the control. Its host hears no event meanwhile. When all is done, and if it has
    // other settings then, the listener hears settingsChanged() and the control's face that any
    // property may have changed; either may destroy the control and these pages.
    /// Writes back each page that is marked changed, and the menu's tick, which marks no page.
    /// Columns then shows what General has made of its column.
    void apply();
    /// The user has pressed a button of Columns, some of which act at once.
    void pressed(PageButton &button);
    /// Cancel: takes back what those buttons have done since the last apply(), with the data of the
    /// columns that they took away.
    void takeBack();
    /// The user has left the index box of Columns, or pressed Enter in it. Nobody is told before
    /// tell(), since the box may not go while it loses the keyboard.
    void goToIndex();
    void tell();

    /// The control may have been changed by somebody else: if so, loads again the pages that have
    /// been shown. What was not applied is lost.
    void follow();

    /// Makes another control one that looks as apply() would make this one, with this many rows
    /// behind its header; all but the last hold samples.
    void preview(Tablio &sample, const SampleWords &words) const;
    static constexpr int sampleRows = 3;
    /// Scrolls the preview to the column that is being edited, and answers where its header is, in
    /// twips; nothing where there is no such column.
    [[nodiscard]] std::optional<Rect> showEditedColumn(Tablio &sample) const;

private:
    void write();
    void quietly(const std::function<void()> &action);
    void change(const std::function<void()> &action);
    [[nodiscard]] bool &isLoaded(const PropertyPage &page);
    /// Than the pages know of; now they know.
    [[nodiscard]] bool hasOtherSettings();
    void reloadColumns();

    Tablio &control_;
    PageListener &listener_;
    /// As one text.
    std::string known_;
    bool generalIsLoaded_ = false;
    bool columnsIsLoaded_ = false;
    bool entryIsLoaded_ = false;
};

} // namespace tablio
