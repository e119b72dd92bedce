#pragma once

/// Writes the picture of the cells into a message, in the page's own fonts, which the page
/// measures.

#include "message.h"

#include <tablio/line_painter.h>
#include <tablio/screen.h>

#include <span>

namespace tablio::web {

class Grid;

class PagePainter final : public LinePainter {
public:
    explicit PagePainter(const Grid &grid) : grid_(grid) {}

    /// The page's own font, which completes others; its name is all of its families.
    Font own;
    /// As CSS has it, in pixels of which there are so many to a logical one.
    [[nodiscard]] std::string css(const Font &font, double scale) const;
    void paintInto(Message &message, std::span<const PixelRect> areas, const SceneLook &look);

private:
    void fill(const PixelRect &area, Colour colour) override;
    void tick(const SceneTick &tick) override;
    void line(const std::string &text, int font, int left, int top, Colour colour) override;
    void clip(const PixelRect &room) override;
    void unclip() override;
    int prepared(int number, const Font &font) override;
    double measured(int font, std::string_view text) override;

    const Grid &grid_;
    Message *message_ = nullptr;
};

} // namespace tablio::web
