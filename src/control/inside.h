#pragma once

/// The one way behind a `Tablio`, for what is built in this tree and needs more than hosts and
/// faces do: the property pages, the tests and the scenario player. Nothing that is installed
/// includes it.

#include "control/control.h"

#include <tablio/tablio.h>

namespace tablio {

struct Inside {
    [[nodiscard]] static Control &of(Tablio &tablio) noexcept { return *tablio.control_; }
    [[nodiscard]] static const std::shared_ptr<Control> &shared(Tablio &tablio) noexcept {
        return tablio.control_;
    }
};

} // namespace tablio
