#pragma once

/// The one way behind a `Tablio`, for what is built in this tree and needs more than hosts and
/// faces do: the tests and the scenario player. Nothing that is installed includes it.

#include "control/control.h"

#include <tablio/tablio.h>

namespace tablio {

struct Inside {
    [[nodiscard]] static Control &of(Tablio &tablio) noexcept { return *tablio.control_; }
};

} // namespace tablio
