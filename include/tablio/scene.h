#pragma once

/// The grid as it is drawn: what `Screen::paint` hands to a face, in the order in which it lies on
/// the screen, in whole device pixels from the grid's corner. A face fills, measures and draws
/// exactly that; where cells stand and how they look is decided here.

#include <tablio/palette.h>
#include <tablio/pixels.h>
#include <tablio/types.h>

#include <array>
#include <string_view>

namespace tablio {

/// What a picture depends on besides the grid.
struct SceneLook {
    Palette palette;
    /// Device pixels to a logical one.
    double scale = 1;
    /// Of the control: the current cell shows whether keys reach it.
    bool hasKeyboard = false;
    bool isEnabled = true;
};

/// Where a text stands in its room; in the middle of an odd rest it stands nearer to the end.
enum class Third { Near, Middle, Far };

/// What becomes of a text in one line that is wider than its room.
enum class TooWide {
    /// Its end makes way for dots.
    Dots,
    /// Only `#` are shown, as many as there is room for, at least one: a number that is cut would
    /// read as another number.
    Hashes,
};

/// The text of one cell, in UTF-8. Valid while it is being painted.
struct SceneText {
    std::string_view text;
    /// Nothing may be drawn outside of it.
    PixelRect room;
    /// The room without its margins at the sides; never empty.
    PixelRect inner;
    Colour colour;
    /// What is empty in it is the face's own.
    const Font &font;
    Third across = Third::Near;
    Third down = Third::Middle;
    /// There are line ends in it. On one line they are blanks.
    bool hasLineEnds = false;
    /// Where it is too wide or has line ends, and `inner` has the height of two lines: it is broken
    /// between words, in as many whole lines as there is room for, and dots end the last of them.
    bool mayWrap = false;
    TooWide tooWide = TooWide::Dots;
};

/// A tick: a line through three points, its ends and its corner round.
struct SceneTick {
    struct Point {
        double x = 0;
        double y = 0;
    };
    std::array<Point, 3> points;
    double penWidth = 1;
    Colour colour;
};

/// What a face implements to draw a scene. All colours are literal.
class ScenePainter {
public:
    virtual ~ScenePainter() = default;
    virtual void fill(const PixelRect &area, Colour colour) = 0;
    virtual void text(const SceneText &text) = 0;
    virtual void tick(const SceneTick &tick) = 0;
};

} // namespace tablio
