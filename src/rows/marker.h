#pragma once

/// The marked row: painted in the mark colours, the row that insert and remove act on. Marking
/// remembers each cell's own colours and gives exactly those back.

#include "state/control_state.h"

#include <optional>
#include <vector>

namespace tablio {

class Marker {
public:
    explicit Marker(ControlState &state) : state_(state) {}

    [[nodiscard]] bool isMarked() const noexcept { return isMarked_; }
    /// The marked row, −1 for none, or what a host has written here, which marks nothing.
    [[nodiscard]] int MarkRow() const noexcept { return MarkRow_; }
    void setMarkRow(std::int16_t row) noexcept { MarkRow_ = row; }
    /// Marks the row of the cell last entered, or unmarks the marked one wherever the cursor is.
    /// The cursor passes over the row's cells, which the host hears, and comes back.
    void toggle();
    /// Unmarks the marked row, if there is one.
    void unmark() {
        if (isMarked())
            toggle();
    }
    /// No row is marked any more; the looks of the cells stay as they are.
    void forget();

private:
    struct Colours {
        std::optional<Colour> back;
        std::optional<Colour> fore;
    };

    void mark(int row);
    void unmarkQuietly();
    /// The cursor goes through the row's cells, as far as there are any.
    void passOver(int row);
    /// Changes the look of the row's cells, before anybody hears of it.
    template <typename Change> void restyle(int row, int firstCol, Change change);

    ControlState &state_;
    /// Of the marked row's cells, from the first one that the mark is painted on.
    std::vector<Colours> before_;
    int firstCol_ = 0;
    Colour markColour_;
    std::int16_t MarkRow_ = 0;
    bool isMarked_ = false;
};

} // namespace tablio
