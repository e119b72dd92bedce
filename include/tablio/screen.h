#pragma once

/// What a face reads of a control: what is to be seen now, and where. Everything is worked out from
/// the control's state when it is asked, at a cost that follows what is visible and never the
/// number of rows. It changes nothing and never reaches the host.

#include <tablio/scene.h>
#include <tablio/types.h>

#include <span>

namespace tablio {

class Control;

/// Positions are twips from the grid's top left corner, if nothing else is said. What is answered
/// by reference or as a view is valid until the control changes.
class Screen {
public:
    explicit Screen(const Control &control) noexcept : control_(control) {}

    /// Paints what lies in these areas, which are device pixels. A painter may be told to draw a
    /// little outside of them.
    void paint(std::span<const PixelRect> areas, const SceneLook &look,
               ScenePainter &painter) const;

private:
    const Control &control_;
};

} // namespace tablio
