/// Saving and loading a control through its container's property store.

#include <tablio/property_bag.h>
#include <tablio/tablio.h>

#include "control/call.h"
#include "model/text/number_text.h"
#include "persistence/stored_keys.h"

#include <algorithm>
#include <array>
#include <string>

namespace tablio {

namespace {

/// A form has to load and to save whatever is wrong with one setting, and nobody is there to be
/// told: a step that fails is skipped.
template <typename Step> void attempt(Step step) noexcept {
    try {
        step();
    } catch (...) {
    }
}

std::string keyOf(std::string_view name, int col) {
    return std::string(name).append(std::to_string(col));
}

class Reader {
public:
    Reader(Control &control, const PropertyBag &bag)
        : control_(control), state_(control.state), bag_(bag) {}

    void read() {
        state_.settings.SetStatusCell = false;
        readGeneral({"BackColorFixed", "WordWrap", "GridPopUpMenu", "Font", "ForeColorFixed"});
        readCols();
        // The counts of rows come before what needs the rows.
        readGeneral({"Rows", "FixedRows", "FixedCols", "BackColorData", "GridColorData",
                     "GridColorFixed", "ForeColorData", "BackColorMarkRow", "ForeColorMarkRow",
                     "HeaderRowHeight", "BackColor", "Enabled", "RowMinHeight"});
        readGeneral({"WithFixedColumn", "PrimaryColumn", "HeaderFontBold", "CheckBoxes"});
        // Stores have always been asked for the row height twice.
        attempt([&] { (void)bag_.readProperty("RowMinHeight", 64); });
        readGeneral({"StripeColor", "CheckBoxColor"});
        readColumns();
        attempt([&] { control_.rows.RenumberFixedColumns(); });
        state_.settings.SetStatusCell = true;
    }

private:
    void readGeneral(std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names) {
            const std::span<const GeneralKey> keys = generalKeys();
            const auto key = std::find_if(keys.begin(), keys.end(),
                                          [name](const GeneralKey &k) { return k.name == name; });
            attempt([&] { key->target(control_, bag_.readProperty(name, key->readDefault)); });
        }
    }

    /// The count that is stored leaves the tick column out.
    void readCols() {
        attempt([&] {
            const double cols = numberAt("Cols", 1) + numberAt("CheckBoxes", 0);
            state_.grid.table.setCols(Value(cols).toLong());
        });
    }

    double numberAt(std::string_view name, int defaultNumber) {
        std::string text = NormalizeNumberText(bag_.readProperty(name, defaultNumber).toText());
        return TextToNumber(text, NumberFormat{});
    }

    void readColumns() {
        state_.columns.clear();
        attempt([&] { state_.grid.view.setRedraw(false); });
        int last = state_.grid.table.Cols() - 1;
        if (state_.settings.CheckBoxes != 0) {
            attempt([&] { state_.grid.table.setColWidth(last, tickColumnWidth); });
            --last;
        }
        for (int col = 0; col <= last; ++col)
            readColumn(col);
        attempt([&] { state_.grid.view.invalidateAll(); });
        attempt([&] {
            EditorLook look = state_.widgets.txtEdit.look();
            look.Font = state_.grid.table.look().Font;
            state_.widgets.txtEdit.setLook(look);
        });
        attempt([&] { state_.grid.view.setRedraw(true); });
    }

    void readColumn(int col) {
        state_.columns.append({"2", "0", "", "64", "0", "0"});
        constexpr std::array readOrder{0, 1, 4, 5, 2, 3, 6, 7, 8, 9};
        for (const int place : readOrder) {
            const ColumnKey &key = columnKeys()[static_cast<std::size_t>(place)];
            attempt([&] {
                key.target(state_, col,
                           bag_.readProperty(keyOf(key.readName, col), key.readDefault));
            });
        }
        if (!state_.grid.table.look().Font.bold)
            return;
        attempt([&] {
            state_.grid.setCurrentQuietly({0, col});
            state_.grid.changeCellStyle(
                [&](CellStyle &style) { style.fontBold = state_.settings.HeaderFontBold; });
        });
    }

    static constexpr Twips tickColumnWidth = 300;

    Control &control_;
    ControlState &state_;
    const PropertyBag &bag_;
};

} // namespace

void Tablio::ReadProperties(const PropertyBag &bag) {
    const Call control(control_);
    attempt([&] { control->session.EndCellEdit(); });
    Reader(*control, bag).read();
}

void Tablio::WriteProperties(PropertyBag &bag) const {
    const Call control(control_);
    const ControlState &state = control->state;
    for (const GeneralKey &key : generalKeys())
        attempt([&] { bag.writeProperty(key.name, key.source(state), key.writeDefault); });
    for (int col = 0; col < state.grid.table.Cols(); ++col) {
        for (const ColumnKey &key : columnKeys())
            attempt([&] {
                bag.writeProperty(keyOf(key.writeName, col), key.source(state, col),
                                  key.writeDefault);
            });
    }
}

} // namespace tablio
