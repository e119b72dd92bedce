#pragma once

/// The marked row: painted in the mark colours, the row that insert and remove act on. Marking
/// remembers each cell's own colours and gives exactly those back.

#include "state/control_state.h"

#include <vector>

namespace tablio {

class Marker {
public:
    explicit Marker(ControlState &state) : state_(state) {}

    [[nodiscard]] bool isMarked() const noexcept { return state_.menu.mnuMarkRow.checked; }
    /// Marks the row of the cell last entered, or unmarks the marked one wherever the cursor is.
    /// The cursor passes over the row's cells, which the host hears, and comes back.
    void toggle();

private:
    struct Colours {
        std::optional<Colour> back;
        std::optional<Colour> fore;
    };

    void mark(int row);
    void unmark();
    void setMenu(bool marked);
    /// Goes through the row's cells; stops where a handler took the cell away.
    template <typename Visit> void passOver(int row, Visit visit);

    ControlState &state_;
    std::vector<Colours> before_;
};

} // namespace tablio
