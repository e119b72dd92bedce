/// A developer uses both property pages in any order, on any control: they end in order, and Cancel
/// gives back what was there.

#include "fuzz.h"

#include <tablio/pages/property_pages.h>
#include <tablio/tablio.h>
#include <tablio/text_bag.h>

namespace tablio::fuzz {

namespace {

class Listener final : public PageListener {};

std::string settings(const Tablio &table) {
    TextBag bag;
    table.saveSettings(bag);
    return bag.text();
}

void use(PropertyPages &pages, PropertyPage &page, PageControl &control, Bytes &bytes) {
    constexpr std::array<const char *, 8> texts{"0", "1", "3", "12", "-1", "", "200", "x"};
    switch (control.kind()) {
    case PageControlKind::TextBox: {
        auto &box = static_cast<PageTextBox &>(control);
        page.typed(box, bytes.chance(4) ? bytes.text(8) : bytes.pick(texts));
        return bytes.chance(2) ? page.lostFocus(box) : void();
    }
    case PageControlKind::CheckBox:
        return page.clicked(static_cast<PageCheckBox &>(control));
    case PageControlKind::List:
        return page.chosen(static_cast<PageList &>(control), bytes.index(5));
    case PageControlKind::Spinner:
        return page.spun(static_cast<PageSpinner &>(control), bytes.index(5));
    case PageControlKind::Button:
        return pages.pressed(static_cast<PageButton &>(control));
    default:
        return;
    }
}

} // namespace

void pages(Bytes &bytes) {
    Tablio table;
    table.InitProperties();
    table.setCols(1 + bytes.below(4));
    table.setRows(1 + bytes.below(6));
    table.setCheckBoxes(bytes.below(2));
    table.setWithFixedColumn(bytes.chance(2));
    Listener listener;
    PropertyPages dialog(table, listener);
    const std::array<PropertyPage *, 3> all{&dialog.general, &dialog.columns, &dialog.entry};
    const std::string before = settings(table);
    bool isApplied = false;
    while (!bytes.atEnd()) {
        PropertyPage &page = *bytes.pick(all);
        dialog.show(page);
        const auto controls = page.controls();
        for (int times = bytes.below(6); times > 0; --times) {
            PageControl &control =
                *controls[static_cast<std::size_t>(bytes.below(static_cast<int>(controls.size())))];
            // Columns by the thousand cost time, which is not what is looked for here.
            if (control.Enabled() && table.Cols() < 300)
                use(dialog, page, control, bytes);
        }
        if (bytes.chance(4)) {
            dialog.apply();
            isApplied = true;
        }
        expect(table.Cols() >= 1 && table.Rows() >= 1, "the pages leave no column or no row");
    }
    dialog.takeBack();
    expect(isApplied || settings(table) == before, "Cancel leaves something changed");
}

} // namespace tablio::fuzz
