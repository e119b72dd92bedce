#pragma once

/// Twips on a screen with so many device pixels to a logical one. Edges are rounded one by one, so
/// that neighbouring cells meet without a gap at any scale. `Screen` places everything by it, and a
/// face its own widgets; it knows no device.

#include <tablio/types.h>

#include <algorithm>
#include <cmath>

namespace tablio {

inline constexpr int twipsPerPixel = 15;

/// A rectangle of whole pixels; left and top belong to it, right and bottom do not.
struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] constexpr int right() const noexcept { return left + width; }
    [[nodiscard]] constexpr int bottom() const noexcept { return top + height; }
    [[nodiscard]] constexpr bool isEmpty() const noexcept { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr bool touches(const PixelRect &other) const noexcept {
        return !isEmpty() && !other.isEmpty() && left < other.right() && other.left < right() &&
               top < other.bottom() && other.top < bottom();
    }

    friend bool operator==(const PixelRect &, const PixelRect &) = default;
};

class DevicePixels {
public:
    /// Device pixels to a logical one, which is 1/96 inch, of a grid that may go from the right to
    /// the left (see Screen::isRightToLeft()).
    explicit DevicePixels(double scale, bool rightToLeft = false) noexcept
        : scale_(scale), rightToLeft_(rightToLeft) {}

    [[nodiscard]] double scale() const noexcept { return scale_; }
    /// A logical length in whole device pixels, at least 1.
    [[nodiscard]] int length(double pixels) const noexcept {
        return std::max(1, static_cast<int>(std::lround(pixels * scale_)));
    }
    [[nodiscard]] int lineWidth() const noexcept { return length(1); }

    /// The device pixel at which a position in twips lies.
    [[nodiscard]] int edge(Twips position) const noexcept {
        return static_cast<int>(std::lround(position * scale_ / twipsPerPixel));
    }
    [[nodiscard]] PixelRect rect(const Rect &area) const noexcept {
        const int left = edge(area.left);
        const int top = edge(area.top);
        return {left, top, edge(area.right()) - left, edge(area.bottom()) - top};
    }
    /// A cell without the lines at its end and its bottom.
    [[nodiscard]] PixelRect withoutLines(const Rect &cell) const noexcept {
        return withoutLines(rect(cell));
    }
    [[nodiscard]] PixelRect withoutLines(const PixelRect &whole) const noexcept {
        return {whole.left + (rightToLeft_ ? lineWidth() : 0), whole.top, whole.width - lineWidth(),
                whole.height - lineWidth()};
    }

    /// The logical pixels that touch these device pixels.
    [[nodiscard]] PixelRect around(const PixelRect &device) const noexcept {
        const int left = down(device.left);
        const int top = down(device.top);
        return {left, top, up(device.right()) - left, up(device.bottom()) - top};
    }
    /// The logical pixels that lie wholly on these device pixels.
    [[nodiscard]] PixelRect inside(const PixelRect &device) const noexcept {
        const int left = up(device.left);
        const int top = up(device.top);
        return {left, top, std::max(0, down(device.right()) - left),
                std::max(0, down(device.bottom()) - top)};
    }

private:
    // A little slack, so that a product such as 3 * 1.1 / 1.1 is still 3.
    [[nodiscard]] int down(int device) const noexcept {
        return static_cast<int>(std::floor(device / scale_ + 1e-6));
    }
    [[nodiscard]] int up(int device) const noexcept {
        return static_cast<int>(std::ceil(device / scale_ - 1e-6));
    }

    double scale_;
    bool rightToLeft_;
};

} // namespace tablio
