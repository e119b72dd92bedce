#pragma once

/// Places and colours on their way between Qt and the core.

#include <tablio/palette.h>
#include <tablio/pixels.h>

#include <QColor>
#include <QPalette>
#include <QRect>

namespace tablio::qt {

inline QRect toQRect(const PixelRect &rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}

inline PixelRect fromQRect(const QRect &rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

inline QColor toQColor(Colour colour) { return {colour.red(), colour.green(), colour.blue()}; }

inline Colour fromQColor(const QColor &colour) {
    return Colour{static_cast<std::uint32_t>(colour.red()) |
                  static_cast<std::uint32_t>(colour.green()) << 8U |
                  static_cast<std::uint32_t>(colour.blue()) << 16U};
}

/// The roles that the core asks for.
[[nodiscard]] inline Palette toPalette(const QPalette &palette, QPalette::ColorGroup group) {
    const auto colour = [&](QPalette::ColorRole role) {
        return fromQColor(palette.color(group, role));
    };
    return {colour(QPalette::Base),
            colour(QPalette::Text),
            fromQColor(palette.color(QPalette::Disabled, QPalette::Text)),
            colour(QPalette::Button),
            colour(QPalette::ButtonText),
            colour(QPalette::Window),
            colour(QPalette::WindowText),
            colour(QPalette::Highlight),
            colour(QPalette::HighlightedText),
            colour(QPalette::Dark),
            colour(QPalette::ToolTipBase),
            colour(QPalette::ToolTipText)};
}

} // namespace tablio::qt
