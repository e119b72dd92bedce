/// The settings of a control that runs: what ReadProperties and WriteProperties do, without losing
/// data, and with everything that only a change does to cells.

#include <tablio/members.h>
#include <tablio/property_bag.h>
#include <tablio/tablio.h>

#include "control/call.h"

namespace tablio {

namespace {

constexpr std::string_view enabledKey = "Enabled";
constexpr std::string_view rowMinHeightKey = "RowMinHeight";

/// A value that is equal to its default is not stored.
void leaveOut(PropertyBag &bag, std::string_view key) { bag.writeProperty(key, {}, {}); }

} // namespace

void Tablio::saveSettings(PropertyBag &bag) const {
    WriteProperties(bag);
    leaveOut(bag, enabledKey);
    if (control_->start.rowsFollowText())
        leaveOut(bag, rowMinHeightKey);
}

void Tablio::loadSettings(const PropertyBag &bag) {
    const Call control(control_);
    ControlState &state = control->state;
    const auto hasStripes = [&] {
        return state.settings.StripeColor != state.grid.table.look().BackColor;
    };
    const bool hadStripes = hasStripes();
    const bool wasEnabled = state.settings.Enabled;
    const bool isCursorUntouched = control->start.isCursorUntouched();

    control->rows.watchNumbers();
    ReadProperties(bag);
    control->rows.blankFormerNumbers();
    state.settings.Enabled = wasEnabled;
    if (isCursorUntouched)
        control->start.leaveCursor();
    if (bag.readProperty(rowMinHeightKey, {}).type() == Value::Type::Empty)
        control->start.letRowsFollowText();
    control->appearance.showHeaderFontBold();
    if (hadStripes || hasStripes())
        control->appearance.PaintStripes();
    state.link.propertyChanged(Number::All);
}

} // namespace tablio
