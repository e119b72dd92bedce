#pragma once

/// What has to be painted of a grid since it was painted last. A face that paints by itself once a
/// frame, as a canvas does, notes here what `Face` reports; one whose toolkit keeps such a region
/// has no use for it.

#include <tablio/pixels.h>
#include <tablio/screen.h>

#include <vector>

namespace tablio {

/// All that is answered is device pixels; the scale is theirs to a logical pixel.
class Damage {
public:
    /// For Face::areaChanged(). Many areas become the whole picture.
    void add(const Rect &area, double scale);
    /// For Face::scrolled(), when the control knows its size.
    void scroll(const Screen &screen, double scale);
    void addAll() noexcept { isAll_ = true; }

    struct Frame {
        /// What lies below its top is moved before anything is painted.
        ScrollMove move;
        std::vector<PixelRect> areas;
    };
    /// Of a picture of this size. From here on there is nothing to be painted.
    [[nodiscard]] Frame take(int width, int height);

private:
    Frame frame_;
    bool isAll_ = true;
    /// What was first when the table was moved or painted last.
    int topRow_ = 0;
    int leftCol_ = 0;
};

} // namespace tablio
