/// How the grid is drawn: which cells lie in an area, what each of them is filled with, framed by
/// and written in, and where the keyboard and an open edit show.

#include <tablio/screen.h>

#include "control/control.h"
#include "model/text/utf16.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace tablio {

namespace {

/// In logical pixels.
constexpr double sidePadding = 3;
constexpr double focusFrame = 2;
/// Shares of the highlight colour.
constexpr double currentTint = 0.16;
constexpr double mutedTint = 0.10;
constexpr double mutedFrame = 0.45;
/// Greys closer than this are hard to tell apart.
constexpr int leastGreyDistance = 40;
/// Alignments below are three thirds across times three down.
constexpr int generalAlignment = 9;

int grey(Colour colour) {
    return (colour.red() * 11 + colour.green() * 16 + colour.blue() * 5) / 32;
}

/// The zeros of the scripts that count in tens; their other digits follow.
constexpr std::array<char32_t, 37> zeros{
    0x30,   0x660,  0x6F0,  0x7C0,  0x966,  0x9E6,  0xA66,  0xAE6,  0xB66,  0xBE6,
    0xC66,  0xCE6,  0xD66,  0xDE6,  0xE50,  0xED0,  0xF20,  0x1040, 0x1090, 0x17E0,
    0x1810, 0x1946, 0x19D0, 0x1A80, 0x1A90, 0x1B50, 0x1BB0, 0x1C40, 0x1C50, 0xA620,
    0xA8D0, 0xA900, 0xA9D0, 0xA9F0, 0xAA50, 0xABF0, 0xFF10};

bool isDigit(char32_t character) {
    return std::any_of(zeros.begin(), zeros.end(),
                       [character](char32_t zero) { return character - zero < 10; });
}

bool isBlank(char32_t character) {
    return character == U' ' || (character >= 9 && character <= 13) || character == 0x85 ||
           character == 0xA0 || character == 0x1680 ||
           (character >= 0x2000 && character <= 0x200A) || character == 0x2028 ||
           character == 0x2029 || character == 0x202F || character == 0x205F || character == 0x3000;
}

/// Whether a text reads as a number in any usual way of writing it.
bool readsAsNumber(std::string_view text) {
    bool hasDigit = false;
    for (std::size_t at = 0; at < text.size(); at += utf16::characterAt(text, at).bytes) {
        const char32_t character = utf16::decoded(text, at);
        if (isDigit(character))
            hasDigit = true;
        else if (!isBlank(character) &&
                 std::u32string_view(U"+-.,'").find(character) == std::u32string_view::npos)
            return false;
    }
    return hasDigit;
}

/// A red that is seen on the ground.
Colour refusedColour(Colour ground) {
    constexpr Colour onLight{0x001414C8};
    constexpr Colour onDark{0x006E6EFF};
    return grey(ground) < 128 ? onDark : onLight;
}

PixelRect shrunk(const PixelRect &rect, int across, int down) {
    return {rect.left + across, rect.top + down, rect.width - 2 * across, rect.height - 2 * down};
}

/// Rectangles of one colour that lie side by side, or one below the other, as one: a face fills one
/// of any size as fast as a small one.
class FillRun {
public:
    /// Those side by side may leave a gap of this width, which something else covers later.
    void add(const PixelRect &area, Colour colour, ScenePainter &painter, int gap = 0) {
        if (area.isEmpty())
            return;
        const bool isAlike = !run_.isEmpty() && colour == colour_;
        if (isAlike && area.top == run_.top && area.height == run_.height &&
            area.left == run_.right() + gap) {
            run_.width = area.right() - run_.left;
        } else if (isAlike && area.left == run_.left && area.width == run_.width &&
                   area.top == run_.bottom()) {
            run_.height += area.height;
        } else {
            flush(painter);
            run_ = area;
            colour_ = colour;
        }
    }
    void flush(ScenePainter &painter) {
        if (!run_.isEmpty())
            painter.fill(run_, colour_);
        run_ = {};
    }

private:
    PixelRect run_;
    Colour colour_;
};

class Scene {
public:
    Scene(const Control &control, const SceneLook &look, ScenePainter &painter)
        : state_(control.state), grid_(state_.grid), look_(grid_.table.look()),
          colours_(look.palette, look.isEnabled), pixels_(look.scale, grid_.view.isRightToLeft()),
          hasKeyboard_(look.hasKeyboard), textHeight_(control.start.textHeight()),
          session_(control.session), painter_(painter) {
        if (control.session.isOpen())
            edited_ = control.session.cell();
    }

    void paint(std::span<const PixelRect> areas);

private:
    using Spans = std::vector<GridView::Span>;
    struct PlacedCell {
        CellAddress cell;
        PixelRect place;
        /// Which of the visible columns it stands in.
        std::size_t col = 0;
    };

    void paintGround(std::span<const PixelRect> areas, const Spans &rows, const Spans &cols);
    /// The cells of one row that are touched: their grounds first, which mostly are one colour from
    /// side to side, then what stands on them, then the lines, which part the cells again.
    void paintRow(std::span<const PlacedCell> cells);
    [[nodiscard]] Colour groundOf(CellAddress cell) const;
    void paintContent(CellAddress cell, const PixelRect &place);
    [[nodiscard]] bool isCurrent(CellAddress cell) const {
        return cell == grid_.current() && !grid_.isFixed(cell.row, cell.col) &&
               colours_.isEnabled();
    }
    [[nodiscard]] bool isRightToLeft() const { return grid_.view.isRightToLeft(); }
    void paintText(CellAddress cell, const PixelRect &room, Colour colour);
    void paintTick(const PixelRect &room, Colour colour);
    void paintBox(const PixelRect &room, Colour colour);
    /// As wide and high as a tick, with its box.
    [[nodiscard]] double tickSize(const PixelRect &room) const;
    void paintFocus(const PixelRect &room, Colour fill, Colour text);
    void frame(const PixelRect &outer, int width, Colour colour);
    void fill(const PixelRect &area, Colour colour) {
        if (!area.isEmpty())
            painter_.fill(area, colour);
    }

    const ControlState &state_;
    const FlexGrid &grid_;
    const GridLook &look_;
    PaletteColours colours_;
    DevicePixels pixels_;
    bool hasKeyboard_;
    Twips textHeight_;
    const EditSession &session_;
    ScenePainter &painter_;
    /// The cell under the open editor: it is painted without its text.
    std::optional<CellAddress> edited_;
    /// At the right of each visible column.
    std::vector<FillRun> linesDown_;
    /// Kept from cell to cell, so that a name is copied without memory being asked for.
    Font font_;
};

void Scene::paint(std::span<const PixelRect> areas) {
    const GridView &view = grid_.view;
    const Spans rows = view.visibleRows();
    Spans cols = view.visibleCols();
    if (isRightToLeft())
        std::reverse(cols.begin(), cols.end());
    const auto isTouched = [areas](const PixelRect &place) {
        return std::any_of(areas.begin(), areas.end(),
                           [&](const PixelRect &area) { return area.touches(place); });
    };
    paintGround(areas, rows, cols);
    PixelRect edited;
    std::vector<PlacedCell> touched;
    linesDown_.resize(cols.size());
    for (const GridView::Span &row : rows) {
        // Most of what is painted is a cell or two.
        const bool isEditedRow = edited_ && edited_->row == row.index;
        if (!isEditedRow && !isTouched(pixels_.rect({0, row.start, view.Width(), row.size})))
            continue;
        touched.clear();
        for (std::size_t at = 0; at < cols.size(); ++at) {
            const CellAddress cell{row.index, cols[at].index};
            const PixelRect place =
                pixels_.rect({cols[at].start, row.start, cols[at].size, row.size});
            if (edited_ == cell)
                edited = place;
            if (isTouched(place))
                touched.push_back({cell, place, at});
        }
        paintRow(touched);
    }
    for (FillRun &line : linesDown_)
        line.flush(painter_);
    // The open editor's frame lies on the lines around its cell.
    const int line = pixels_.lineWidth();
    if (!edited.isEmpty())
        frame({edited.left - (isRightToLeft() ? 0 : line), edited.top - line, edited.width + line,
               edited.height + line},
              line, colours_.highlight());
}

/// What no cell covers: the strips beside the last column and below the last row. Cells paint
/// their own ground, and a window full of pixels that is filled twice is felt.
void Scene::paintGround(std::span<const PixelRect> areas, const Spans &rows, const Spans &cols) {
    const Colour colour = colours_.of(look_.BackColorBkg);
    const auto end = [this](const Spans &spans) {
        return spans.empty() ? 0 : pixels_.edge(spans.back().start + spans.back().size);
    };
    for (const PixelRect &area : areas) {
        const int top = std::max(area.top, end(rows));
        if (isRightToLeft()) {
            const int begin = cols.empty() ? area.right() : pixels_.edge(cols.front().start);
            fill({area.left, area.top, std::min(begin, area.right()) - area.left, area.height},
                 colour);
        } else {
            const int left = std::max(area.left, end(cols));
            fill({left, area.top, area.right() - left, area.height}, colour);
        }
        fill({area.left, top, area.width, area.bottom() - top}, colour);
    }
}

void Scene::paintRow(std::span<const PlacedCell> cells) {
    const int line = pixels_.lineWidth();
    FillRun grounds;
    for (const PlacedCell &placed : cells)
        grounds.add(pixels_.withoutLines(placed.place), groundOf(placed.cell), painter_, line);
    grounds.flush(painter_);
    for (const PlacedCell &placed : cells)
        paintContent(placed.cell, placed.place);
    FillRun lineAcross;
    for (const auto &[cell, place, col] : cells) {
        const Colour colour =
            colours_.of(grid_.isFixed(cell.row, cell.col) ? look_.GridColorFixed : look_.GridColor);
        const int left = isRightToLeft() ? place.left : place.right() - line;
        linesDown_[col].add({left, place.top, line, place.height}, colour, painter_);
        lineAcross.add({place.left, place.bottom() - line, place.width, line}, colour, painter_);
    }
    lineAcross.flush(painter_);
}

Colour Scene::groundOf(CellAddress cell) const {
    if (edited_ == cell)
        return colours_.of(look_.BackColor);
    const Colour ground = colours_.of(grid_.backColorOf(cell.row, cell.col));
    return isCurrent(cell)
               ? blended(ground, colours_.highlight(), hasKeyboard_ ? currentTint : mutedTint)
               : ground;
}

void Scene::paintContent(CellAddress cell, const PixelRect &place) {
    if (edited_ == cell)
        return;
    const PixelRect room = pixels_.withoutLines(place);
    const Colour text =
        colours_.text(grid_.foreColorOf(cell.row, cell.col), grid_.backColorOf(cell.row, cell.col));
    if (state_.settings.CheckBoxFrame && state_.isCheckCell(cell) &&
        !grid_.isFixed(cell.row, cell.col))
        paintBox(room, text);
    paintText(cell, room, text);
    if (session_.isRefused(cell))
        frame(room, pixels_.lineWidth(), refusedColour(groundOf(cell)));
    if (isCurrent(cell))
        paintFocus(room, groundOf(cell), text);
}

void Scene::paintFocus(const PixelRect &room, Colour fill, Colour text) {
    // In a marked row the highlight is the background.
    const bool isSeen = std::abs(grey(fill) - grey(colours_.highlight())) >= leastGreyDistance;
    const Colour highlight = isSeen ? colours_.highlight() : text;
    if (grid_.FocusRect() == 2 && hasKeyboard_)
        frame(room, pixels_.length(focusFrame), highlight);
    else if (!edited_)
        frame(room, pixels_.lineWidth(),
              blended(colours_.of(look_.BackColor), highlight, mutedFrame));
}

void Scene::frame(const PixelRect &outer, int width, Colour colour) {
    const PixelRect inner = shrunk(outer, width, width);
    if (inner.isEmpty())
        return;
    fill({outer.left, outer.top, outer.width, width}, colour);
    fill({outer.left, inner.bottom(), outer.width, width}, colour);
    fill({outer.left, inner.top, width, inner.height}, colour);
    fill({inner.right(), inner.top, width, inner.height}, colour);
}

double Scene::tickSize(const PixelRect &room) const {
    const double text = textHeight_ * pixels_.scale() / twipsPerPixel;
    return std::min(
        {room.height * 0.62, room.width * 0.8, std::max(12.0 * pixels_.scale(), text * 0.75)});
}

void Scene::paintTick(const PixelRect &room, Colour colour) {
    // In its box it leaves some room.
    const double side = tickSize(room) * (state_.settings.CheckBoxFrame ? 0.8 : 1);
    const double left = room.left + room.width / 2.0 - side / 2;
    const double top = room.top + room.height / 2.0 - side / 2;
    painter_.tick({{{{left + side * 0.10, top + side * 0.55},
                     {left + side * 0.38, top + side * 0.85},
                     {left + side * 0.90, top + side * 0.15}}},
                   std::max(1.5 * pixels_.scale(), side / 6),
                   colour});
}

void Scene::paintBox(const PixelRect &room, Colour colour) {
    const int side = static_cast<int>(tickSize(room) * 1.15);
    frame({room.left + (room.width - side) / 2, room.top + (room.height - side) / 2, side, side},
          pixels_.lineWidth(), colour);
}

void Scene::paintText(CellAddress cell, const PixelRect &room, Colour colour) {
    const std::string_view shown = grid_.table.TextMatrix(cell.row, cell.col);
    const PixelRect inner = shrunk(room, pixels_.length(sidePadding), 0);
    if (shown.empty() || inner.width <= 0)
        return;
    const CellStyle &style = grid_.table.cellStyle(cell.row, cell.col);
    if (CheckColumn::isTick(style, shown)) {
        paintTick(room, colour);
        return;
    }
    font_ = look_.Font;
    style.dress(font_);

    const bool isNumber = !grid_.isFixed(cell.row, cell.col) && readsAsNumber(shown);
    SceneText text{shown, room, inner, colour, font_};
    const int alignment = grid_.alignmentOf(cell.row, cell.col);
    if (alignment >= 0 && alignment < generalAlignment) {
        text.across = static_cast<Third>(alignment / 3);
        text.down = static_cast<Third>(alignment % 3);
    } else if (isNumber) {
        text.across = Third::Far;
    }
    // Numbers stand with their units one below the other, also where texts begin at the right.
    const bool isAmount = isNumber || state_.columns.isNumeric(cell.col);
    if (isRightToLeft() && !(isAmount && text.across == Third::Far))
        text.across = static_cast<Third>(2 - static_cast<int>(text.across));
    text.hasLineEnds = shown.find('\n') != std::string_view::npos;
    text.mayWrap = look_.WordWrap && !isNumber;
    if (isNumber && state_.columns.isNumeric(cell.col))
        text.tooWide = TooWide::Hashes;
    painter_.text(text);
}

} // namespace

void Screen::paint(std::span<const PixelRect> areas, const SceneLook &look,
                   ScenePainter &painter) const {
    Scene(control_, look, painter).paint(areas);
}

} // namespace tablio
