#include <tablio/palette.h>

#include <algorithm>
#include <cmath>

namespace tablio {

namespace {

constexpr Colour black{0x00000000U};
constexpr Colour white{0x00FFFFFFU};
/// Below this a text is hard to read even in bold.
constexpr double leastContrast = 3.0;

double luminance(Colour colour) {
    const auto linear = [](int level) {
        const double part = level / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
           0.0722 * linear(colour.blue());
}

Colour readable(Colour wanted, Colour behind) {
    if (contrast(wanted, behind) >= leastContrast)
        return wanted;
    return contrast(black, behind) >= contrast(white, behind) ? black : white;
}

} // namespace

Colour blended(Colour first, Colour second, double share) noexcept {
    const auto part = [share](int from, int to) {
        return static_cast<std::uint32_t>(std::lround(from + (to - from) * share));
    };
    return Colour{part(first.red(), second.red()) | part(first.green(), second.green()) << 8U |
                  part(first.blue(), second.blue()) << 16U};
}

double contrast(Colour first, Colour second) noexcept {
    const double one = luminance(first) + 0.05;
    const double other = luminance(second) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

Colour PaletteColours::text(Colour text, Colour background) const noexcept {
    const Colour wanted = of(text);
    if (!isEnabled_ && background.isSystem())
        return palette_.text;
    const Colour behind = of(background);
    if (!isEnabled_ && !text.isSystem())
        return blended(wanted, behind, 0.5);
    return text.isSystem() == background.isSystem() ? wanted : readable(wanted, behind);
}

/// The indices are the desktop's classic ones. Shadows are mixed from the button's own colours,
/// because palettes of dark desktops often have no visible middle or dark tone.
Colour PaletteColours::system(int index) const noexcept {
    if (static_cast<std::size_t>(index) < palette_.byIndex.size())
        return palette_.byIndex[static_cast<std::size_t>(index)];
    switch (index) {
    case 1:  // desktop
    case 12: // multiple-document background
        return palette_.dark;
    case 2: // active title
    case 13:
        return palette_.highlight;
    case 9: // text of the active title
    case 14:
        return palette_.highlightedText;
    case 5:
        return palette_.base;
    case 6: // window frame
    case 8:
        return palette_.text;
    case 7: // menu text
        return palette_.windowText;
    case 17:
        return palette_.disabledText;
    case 18:
        return palette_.buttonText;
    case 0:  // scroll bar
    case 3:  // inactive title
    case 10: // active border
    case 11: // inactive border
    case 16:
        return blended(palette_.button, palette_.buttonText, 0.18);
    case 21: // dark shadow
        return blended(palette_.button, palette_.buttonText, 0.45);
    case 20: // highlight edge
    case 22: // light edge
        return blended(palette_.button, palette_.base, 0.7);
    case 23:
        return palette_.toolTipText;
    case 24:
        return palette_.toolTipBase;
    case 4: // menu
        return palette_.window;
    default: // 15, and what nobody uses
        return palette_.button;
    }
}

} // namespace tablio
