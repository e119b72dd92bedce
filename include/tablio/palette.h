#pragma once

/// The control's colours as the user's desktop shows them. A face fills in what its desktop has for
/// each role; a system colour follows it, a literal one stays, and where one meets the other a text
/// is kept readable. It knows nothing of the grid.

#include <tablio/types.h>

#include <span>

namespace tablio {

/// Literal colours, as the platform has them for a widget in its present state: active, inactive
/// or disabled.
struct Palette {
    /// The ground that is typed on, and what is typed.
    Colour base;
    Colour text;
    Colour disabledText;
    Colour button;
    Colour buttonText;
    Colour window;
    Colour windowText;
    Colour highlight;
    Colour highlightedText;
    Colour dark;
    Colour toolTipBase;
    Colour toolTipText;
    /// The desktop's colours by their indices, where it has them; others are made of those above.
    /// Valid as long as the palette is used.
    std::span<const Colour> byIndex = {};
};

class PaletteColours {
public:
    PaletteColours(const Palette &palette, bool isEnabled)
        : palette_(palette), isEnabled_(isEnabled) {}

    /// What is seen, always a literal colour.
    [[nodiscard]] Colour of(Colour colour) const noexcept {
        return colour.isSystem() ? system(colour.systemIndex()) : colour;
    }
    /// The text colour on that background. A literal text on a literal background is the host's
    /// own choice; a text that follows the palette half-way must not become unreadable by it.
    [[nodiscard]] Colour text(Colour text, Colour background) const noexcept;

    [[nodiscard]] Colour highlight() const noexcept { return palette_.highlight; }
    [[nodiscard]] bool isEnabled() const noexcept { return isEnabled_; }

private:
    [[nodiscard]] Colour system(int index) const noexcept;

    Palette palette_;
    bool isEnabled_;
};

/// So much of the second literal colour in the first, 0 to 1.
[[nodiscard]] Colour blended(Colour first, Colour second, double share) noexcept;
/// Contrast of two literal colours as people see it, 1 (none) to 21.
[[nodiscard]] double contrast(Colour first, Colour second) noexcept;

} // namespace tablio
