#pragma once

/// The control's colours as the user's palette shows them. A system colour follows the palette, a
/// literal one stays; where one meets the other, a text is kept readable.

#include <tablio/types.h>

#include <QColor>
#include <QPalette>

namespace tablio::qt {

class PaletteColours {
public:
    PaletteColours(const QPalette &palette, QPalette::ColorGroup group)
        : palette_(palette), group_(group) {}

    [[nodiscard]] QColor of(Colour colour) const;
    /// The text colour on that background. A literal text on a literal background is the host's
    /// own choice; a text that follows the palette half-way must not become unreadable by it.
    [[nodiscard]] QColor text(Colour text, Colour background) const;

    [[nodiscard]] QColor highlight() const { return palette_.color(group_, QPalette::Highlight); }
    [[nodiscard]] bool isDisabled() const noexcept { return group_ == QPalette::Disabled; }

private:
    [[nodiscard]] QColor system(int index) const;
    [[nodiscard]] static QColor readable(const QColor &wanted, const QColor &behind);

    QPalette palette_;
    QPalette::ColorGroup group_;
};

/// So much of the second colour in the first, 0 to 1.
[[nodiscard]] QColor blended(const QColor &first, const QColor &second, qreal share);
/// Contrast of two colours as people see it, 1 (none) to 21.
[[nodiscard]] qreal contrast(const QColor &first, const QColor &second);

} // namespace tablio::qt
