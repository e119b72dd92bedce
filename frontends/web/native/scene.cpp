/// The picture of the cells, in device pixels, and what it depends on: the page's look, its locale
/// and its fonts, which the page measures.

#include "grid.h"

#include <cmath>

namespace tablio::web {

namespace {

/// In the order of `element/painter.ts`.
enum class Kind { Fill, Line, Tick, Clip, Unclip };

} // namespace

void PagePainter::fill(const PixelRect &area, Colour colour) {
    message_->add(Kind::Fill, colour, area);
}

void PagePainter::line(const std::string &text, int font, int left, int top, Colour colour) {
    message_->add(Kind::Line, colour, font, left, top, text);
}

void PagePainter::tick(const SceneTick &tick) {
    message_->add(Kind::Tick, tick.colour, tick.penWidth);
    for (const SceneTick::Point &point : tick.points)
        message_->add(point.x, point.y);
}

void PagePainter::clip(const PixelRect &room) { message_->add(Kind::Clip, room); }

void PagePainter::unclip() { message_->add(Kind::Unclip); }

int PagePainter::prepared(int number, const Font &font) {
    return static_cast<int>(grid_.ask(Ask::LineHeight, number, 0, css(font, grid_.look.scale)));
}

double PagePainter::measured(int font, std::string_view text) {
    return grid_.ask(Ask::TextWidth, font, 0, text);
}

std::string PagePainter::css(const Font &font, double scale) const {
    const double points = static_cast<double>(font.size > 0 ? font.size : own.size);
    const int bold = font.bold ? 700 : own.weight;
    // A hundredth of a pixel is fine enough, and whole numbers need no library to be written.
    return std::string(font.italic || own.italic ? "italic " : "") +
           std::to_string(font.weight > 0 ? font.weight : bold) + " " +
           std::to_string(std::lround(points * 4 / 3 * scale * 100)) + "e-2px " +
           (font.name.empty() ? "" : "\"" + font.name + "\", ") + own.name;
}

void PagePainter::paintInto(Message &message, std::span<const PixelRect> areas,
                            const SceneLook &look) {
    message_ = &message;
    grid_.table().screen().paint(areas, look, *this);
}

/// What is to be moved (its top, and how far down), then what has changed.
[[clang::export_name("paint")]] const void *paint(int number, int width, int height) {
    return replied(number, [&](Grid &grid, Message &message) {
        const Damage::Frame frame = grid.takeDamage(width, height);
        message.add(frame.move.top, frame.move.distance);
        SceneLook look = grid.look;
        look.isEnabled = grid.isEnabled();
        grid.painter.paintInto(message, frame.areas, look);
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
        grid.painter.forgetFonts();
        grid.repaintAll();
    });
}

/// The room holds the signs of numbers, the sizes of their groups, the order of dates, and the
/// font: its family, all of the families, its size, its weight and style, and how high a line is.
[[clang::export_name("setLocale")]] void setLocale(int number) {
    with(number, [](Grid &grid) {
        Given given(11);
        grid.numbers = {given.text(), given.text(), given.next<int>(), given.next<int>()};
        grid.dates = given.next<DateOrder>();
        grid.font.name = given.text();
        Font &own = grid.painter.own;
        own.name = given.text();
        own.size = grid.font.size = given.next<float>();
        own.weight = given.next<std::int16_t>();
        own.italic = grid.font.italic = given.next<bool>();
        grid.font.bold = own.weight >= 600;
        grid.painter.forgetFonts();
        grid.table().input().textHeight(given.next<Twips>());
    });
}

} // namespace tablio::web
