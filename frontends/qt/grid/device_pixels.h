#pragma once

/// Twips on a screen with so many device pixels to a logical one. Edges are rounded one by one, so
/// that neighbouring cells meet without a gap at any scale.

#include <tablio/types.h>

#include <QPoint>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <cmath>

namespace tablio::qt {

inline constexpr int twipsPerPixel = 15;

class DevicePixels {
public:
    explicit DevicePixels(qreal ratio) noexcept : ratio_(ratio) {}

    [[nodiscard]] qreal ratio() const noexcept { return ratio_; }
    /// A logical length in whole device pixels, at least 1.
    [[nodiscard]] int length(qreal pixels) const noexcept {
        return std::max(1, static_cast<int>(std::lround(pixels * ratio_)));
    }
    [[nodiscard]] int lineWidth() const noexcept { return length(1); }

    /// The device pixel at which a position in twips lies.
    [[nodiscard]] int edge(Twips position) const noexcept {
        return static_cast<int>(std::lround(position * ratio_ / twipsPerPixel));
    }
    [[nodiscard]] QRect rect(const Rect &area) const noexcept {
        const QPoint from(edge(area.left), edge(area.top));
        return {from, QSize(edge(area.right()) - from.x(), edge(area.bottom()) - from.y())};
    }
    /// The logical pixels that touch these device pixels.
    [[nodiscard]] QRect around(const QRect &device) const noexcept {
        const QPoint from(down(device.left()), down(device.top()));
        return {from, QSize(up(device.right() + 1) - from.x(), up(device.bottom() + 1) - from.y())};
    }
    /// The logical pixels that lie wholly on these device pixels.
    [[nodiscard]] QRect inside(const QRect &device) const noexcept {
        const QPoint from(up(device.left()), up(device.top()));
        return {from, QSize(std::max(0, down(device.right() + 1) - from.x()),
                            std::max(0, down(device.bottom() + 1) - from.y()))};
    }

private:
    // A little slack, so that a product such as 3 * 1.1 / 1.1 is still 3.
    [[nodiscard]] int down(int device) const noexcept {
        return static_cast<int>(std::floor(device / ratio_ + 1e-6));
    }
    [[nodiscard]] int up(int device) const noexcept {
        return static_cast<int>(std::ceil(device / ratio_ - 1e-6));
    }

    qreal ratio_;
};

} // namespace tablio::qt
