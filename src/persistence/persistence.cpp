/// Saving and loading a control through its container's property store.

#include <tablio/members.h>
#include <tablio/property_bag.h>
#include <tablio/tablio.h>

#include "control/call.h"
#include "model/text/number_text.h"
#include "persistence/stored_keys.h"

#include <algorithm>
#include <array>
#include <limits>
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

/// The setting that has this place among those that are written, or read; null behind the last.
const Member *settingAt(int Stored::*order, int place) {
    const auto all = members();
    const auto found = std::find_if(all.begin(), all.end(), [=](const Member &member) {
        return member.stored.*order == place;
    });
    return found == all.end() ? nullptr : &*found;
}

class Reader {
public:
    Reader(Tablio &tablio, Control &control, const PropertyBag &bag)
        : tablio_(tablio), control_(control), state_(control.state), bag_(bag) {}

    void read() {
        state_.settings.SetStatusCell = false;
        readGeneral(1, givenSettings);
        readColumns();
        readGeneral(givenSettings + 1, std::numeric_limits<int>::max());
        attempt([&] { control_.rows.RenumberFixedColumns(); });
        state_.settings.SetStatusCell = true;
    }

private:
    void readGeneral(int first, int last) {
        const Temporarily loading(control_.isLoading, true);
        for (int place = first; place <= last; ++place) {
            const Member *member = settingAt(&Stored::read, place);
            if (member == nullptr)
                return;
            attempt([&] { readGeneral(*member); });
            // Stores have always been asked for the row height twice.
            if (member->name == "CheckBoxes")
                attempt([&] { (void)bag_.readProperty("RowMinHeight", 64); });
        }
    }

    void readGeneral(const Member &member) {
        // The count that is stored leaves the tick column out.
        if (member.name == "Cols")
            return state_.grid.table.setCols(
                Value(numberAt("Cols", 1) + numberAt("CheckBoxes", 0)).toLong());
        const Value value =
            convertedTo(member.type, bag_.readProperty(member.name, member.stored.defaultToRead()));
        // A container may destroy the control while it answers.
        if (!state_.link.isClosed())
            member.write(tablio_, {&value, 1});
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
                           bag_.readProperty(keyOf(key.readName, col), key.defaultValue));
            });
        }
        if (!state_.grid.table.look().Font.bold)
            return;
        attempt([&] {
            control_.appearance.styleFont({0, col}, &CellStyle::fontBold,
                                          state_.settings.HeaderFontBold);
        });
    }

    static constexpr Twips tickColumnWidth = 300;
    /// Containers have always been asked for these, in their order, before the columns; what came
    /// later is asked for last.
    static constexpr int givenSettings = 25;

    Tablio &tablio_;
    Control &control_;
    ControlState &state_;
    const PropertyBag &bag_;
};

} // namespace

void Tablio::ReadProperties(const PropertyBag &bag) {
    const Call control(control_);
    attempt([&] { control->session.EndCellEdit(); });
    if (!control->state.link.isClosed())
        Reader(*this, *control, bag).read();
}

void Tablio::WriteProperties(PropertyBag &bag) const {
    const Call control(control_);
    const ControlState &state = control->state;
    // Reading a property of the whole control changes nothing.
    auto &tablio = const_cast<Tablio &>(*this);
    for (int place = 1; const Member *member = settingAt(&Stored::written, place); ++place) {
        attempt([&] {
            Value value = convertedTo(member->type, member->read(tablio, {}));
            if (member->name == "Cols")
                value = state.grid.table.Cols() - state.settings.CheckBoxes;
            else if (member->name == "Enabled") // Whether or not the calendar is open.
                value = state.settings.Enabled;
            bag.writeProperty(member->name, value, member->stored.defaultToWrite());
        });
    }
    for (int col = 0; col < state.grid.table.Cols(); ++col) {
        for (const ColumnKey &key : columnKeys())
            attempt([&] {
                bag.writeProperty(keyOf(key.name, col), key.source(state, col), key.defaultValue);
            });
    }
}

} // namespace tablio
