#pragma once

/// The keys under which a control's settings are stored, each with its defaults and the place its
/// value comes from and goes to. Hosts' files hold these names: they and the defaults are fixed,
/// also where a value is written and read with different ones.

#include "control/control.h"

#include <tablio/value.h>

#include <span>
#include <string_view>

namespace tablio {

/// A setting of the whole control.
struct GeneralKey {
    std::string_view name;
    Value writeDefault;
    Value readDefault;
    Value (*source)(const ControlState &state);
    /// Throws what the conversion or the grid throws. Null: ReadProperties reads it in its own way.
    void (*target)(Control &control, const Value &value);
};

/// A setting of one column; the column's number follows the name.
struct ColumnKey {
    std::string_view writeName;
    Value writeDefault;
    std::string_view readName;
    Value readDefault;
    Value (*source)(const ControlState &state, int col);
    void (*target)(ControlState &state, int col, const Value &value);
};

/// In the order of writing.
[[nodiscard]] std::span<const GeneralKey> generalKeys();
[[nodiscard]] std::span<const ColumnKey> columnKeys();

} // namespace tablio
