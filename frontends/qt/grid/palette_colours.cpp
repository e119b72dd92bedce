#include "grid/palette_colours.h"

#include <algorithm>
#include <cmath>

namespace tablio::qt {

namespace {

/// Below this a text is hard to read even in bold.
constexpr qreal leastContrast = 3.0;

qreal luminance(const QColor &colour) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor mixed(const QPalette &palette, QPalette::ColorGroup group, QPalette::ColorRole from,
             QPalette::ColorRole to, qreal share) {
    return blended(palette.color(group, from), palette.color(group, to), share);
}

} // namespace

QColor blended(const QColor &first, const QColor &second, qreal share) {
    const auto part = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {part(first.red(), second.red()), part(first.green(), second.green()),
            part(first.blue(), second.blue())};
}

qreal contrast(const QColor &first, const QColor &second) {
    const qreal one = luminance(first) + 0.05;
    const qreal other = luminance(second) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor PaletteColours::of(Colour colour) const {
    return colour.isSystem() ? system(colour.systemIndex())
                             : QColor(colour.red(), colour.green(), colour.blue());
}

QColor PaletteColours::text(Colour text, Colour background) const {
    const QColor wanted = of(text);
    if (isDisabled() && background.isSystem())
        return palette_.color(group_, QPalette::Text);
    const QColor behind = of(background);
    if (isDisabled() && !text.isSystem())
        return blended(wanted, behind, 0.5);
    return text.isSystem() == background.isSystem() ? wanted : readable(wanted, behind);
}

QColor PaletteColours::readable(const QColor &wanted, const QColor &behind) {
    if (contrast(wanted, behind) >= leastContrast)
        return wanted;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return contrast(black, behind) >= contrast(white, behind) ? black : white;
}

/// The indices are the desktop's classic ones. Shadows are mixed from the button's own colours,
/// because palettes of dark desktops often have no visible Mid or Dark.
QColor PaletteColours::system(int index) const {
    switch (index) {
    case 1:  // desktop
    case 12: // multiple-document background
        return palette_.color(group_, QPalette::Dark);
    case 2: // active title
    case 13:
        return highlight();
    case 9: // text of the active title
    case 14:
        return palette_.color(group_, QPalette::HighlightedText);
    case 5:
        return palette_.color(group_, QPalette::Base);
    case 6: // window frame
    case 8:
        return palette_.color(group_, QPalette::Text);
    case 7: // menu text
        return palette_.color(group_, QPalette::WindowText);
    case 17:
        return palette_.color(QPalette::Disabled, QPalette::Text);
    case 18:
        return palette_.color(group_, QPalette::ButtonText);
    case 0:  // scroll bar
    case 3:  // inactive title
    case 10: // active border
    case 11: // inactive border
    case 16:
        return mixed(palette_, group_, QPalette::Button, QPalette::ButtonText, 0.18);
    case 21: // dark shadow
        return mixed(palette_, group_, QPalette::Button, QPalette::ButtonText, 0.45);
    case 20: // highlight edge
    case 22: // light edge
        return mixed(palette_, group_, QPalette::Button, QPalette::Base, 0.7);
    case 23:
        return palette_.color(group_, QPalette::ToolTipText);
    case 24:
        return palette_.color(group_, QPalette::ToolTipBase);
    case 4: // menu
        return palette_.color(group_, QPalette::Window);
    default: // 15, and what nobody uses
        return palette_.color(group_, QPalette::Button);
    }
}

} // namespace tablio::qt
