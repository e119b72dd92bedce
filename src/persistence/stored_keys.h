#pragma once

/// The keys under which the settings of single columns are stored, each with its default and the
/// place its value comes from and goes to; those of the whole control stand in the member table.
/// Hosts' files hold these names: they and the defaults are fixed, also where a value is written
/// and read under different ones.

#include "state/control_state.h"

#include <tablio/value.h>

#include <span>
#include <string_view>

namespace tablio {

/// A setting of one column; the column's number follows the name.
struct ColumnKey {
    std::string_view name;
    Value defaultValue;
    Value (*source)(const ControlState &state, int col);
    void (*target)(ControlState &state, int col, const Value &value);
    /// It is read under this one.
    std::string_view readName = name;
};

/// In the order of writing.
[[nodiscard]] std::span<const ColumnKey> columnKeys();

} // namespace tablio
