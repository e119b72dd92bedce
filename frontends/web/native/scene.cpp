/// The picture of the cells, in device pixels, and what it depends on: the page's look, its locale
/// and its fonts, which the page measures.

#include "grid.h"

#include <tablio/text_lines.h>

#include <algorithm>
#include <cmath>

namespace tablio::web {

namespace {

/// As numbers: a kind and what it needs, in the order of `Kind` in `element/painter.ts`.
class SceneWriter final : public ScenePainter {
public:
    SceneWriter(Grid &grid, Message &message) : grid_(grid), message_(message) {}

    void fill(const PixelRect &area, Colour colour) override {
        message_.add(Kind::Fill, colour, area);
    }
    void text(const SceneText &text) override {
        PageFont &font = grid_.fonts.of(text.font, grid_);
        const auto lines = linesOf(
            text, font.height, [&](std::string_view words) { return font.widthOf(words, grid_); });
        const bool isClipped = font.height * static_cast<int>(lines.size()) > text.room.height;
        if (isClipped)
            message_.add(Kind::Clip, text.room);
        for (const TextLine &line : lines) {
            message_.add(Kind::Text, text.colour, font.number, line.left, line.top, line.text);
            const auto rule = [&](double down) {
                fill({line.left, line.top + static_cast<int>(font.height * down), line.width,
                      std::max(1, font.height / 16)},
                     text.colour);
            };
            if (text.font.underline)
                rule(0.87);
            if (text.font.strikethrough)
                rule(0.54);
        }
        if (isClipped)
            message_.add(Kind::Unclip);
    }
    void tick(const SceneTick &tick) override {
        message_.add(Kind::Tick, tick.colour, tick.penWidth);
        for (const SceneTick::Point &point : tick.points)
            message_.add(point.x, point.y);
    }

private:
    enum class Kind { Fill, Text, Tick, Clip, Unclip };

    Grid &grid_;
    Message &message_;
};

} // namespace

double PageFont::widthOf(std::string_view text, const Grid &grid) {
    constexpr std::size_t most = 4000;
    const auto known = widths.find(text);
    if (known != widths.end())
        return known->second;
    if (widths.size() == most)
        widths.clear();
    return widths.emplace(text, grid.ask(Ask::TextWidth, number, 0, text)).first->second;
}

PageFont &PageFonts::of(const Font &font, const Grid &grid) {
    const auto known = std::find_if(fonts_.begin(), fonts_.end(),
                                    [&](const PageFont &one) { return one.asked == font; });
    if (known != fonts_.end())
        return *known;
    const int number = static_cast<int>(fonts_.size());
    const double height = grid.ask(Ask::LineHeight, number, 0, css(font, grid.look.scale));
    return fonts_.emplace_back(PageFont{font, number, static_cast<int>(height), {}});
}

std::string PageFonts::css(const Font &font, double scale) const {
    const double points = font.size > 0 ? static_cast<double>(font.size) : size;
    const int bold = font.bold ? 700 : weight;
    // A hundredth of a pixel is fine enough, and whole numbers need no library to be written.
    return std::string(font.italic || isItalic ? "italic " : "") +
           std::to_string(font.weight > 0 ? font.weight : bold) + " " +
           std::to_string(std::lround(points * 4 / 3 * scale * 100)) + "e-2px " +
           (font.name.empty() ? "" : "\"" + font.name + "\", ") + families;
}

/// What is to be moved (its top, and how far down), then what has changed.
[[clang::export_name("paint")]] const void *paint(int number, int width, int height) {
    return replied(number, [&](Grid &grid, Message &message) {
        const Damage::Frame frame = grid.takeDamage(width, height);
        message.add(frame.move.top, frame.move.distance);
        SceneLook look = grid.look;
        look.isEnabled = grid.isEnabled();
        SceneWriter writer(grid, message);
        grid.table().screen().paint(frame.areas, look, writer);
    });
}

/// The room holds the scale, whether the box has the keyboard, and the palette's twelve colours.
[[clang::export_name("setLook")]] void setLook(int number) {
    with(number, [&](Grid &grid) {
        Given given(14);
        grid.look.scale = given.number();
        grid.look.hasKeyboard = given.next<bool>();
        Palette &palette = grid.look.palette;
        for (Colour *colour :
             {&palette.base, &palette.text, &palette.disabledText, &palette.button,
              &palette.buttonText, &palette.window, &palette.windowText, &palette.highlight,
              &palette.highlightedText, &palette.dark, &palette.toolTipBase, &palette.toolTipText})
            colour->value = given.next<std::uint32_t>();
        grid.fonts.forget();
        grid.repaintAll();
    });
}

/// The room holds the signs of numbers, the sizes of their groups, the order of dates, and the
/// font: its family, all of the families, its size, its weight and style, and how high a line is.
[[clang::export_name("setLocale")]] void setLocale(int number) {
    with(number, [](Grid &grid) {
        Given given(11);
        PageFonts &fonts = grid.fonts;
        grid.numbers = {given.text(), given.text(), given.next<int>(), given.next<int>()};
        grid.dates = given.next<DateOrder>();
        grid.font.name = given.text();
        fonts.families = given.text();
        fonts.size = given.number();
        fonts.weight = given.next<int>();
        fonts.isItalic = given.next<bool>();
        fonts.forget();
        grid.font.size = static_cast<float>(fonts.size);
        grid.font.bold = fonts.weight >= 600;
        grid.font.italic = fonts.isItalic;
        grid.table().input().textHeight(given.next<Twips>());
    });
}

} // namespace tablio::web
