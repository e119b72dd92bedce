#include "window/painting/gdi_painter.h"

#include "object/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tablio::com {

namespace {

constexpr wchar_t dots = L'\u2026';

void replaceLineEnds(std::wstring &text) {
    std::replace_if(
        text.begin(), text.end(),
        [](wchar_t character) { return character == L'\n' || character == L'\r'; }, L' ');
}

} // namespace

GdiPainter::GdiPainter(HDC device, CellFonts &fonts)
    : device_(device), fonts_(fonts), saved_(SaveDC(device)) {
    SetBkMode(device_, TRANSPARENT);
    SetTextAlign(device_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    SelectObject(device_, GetStockObject(DC_BRUSH));
}

GdiPainter::~GdiPainter() { RestoreDC(device_, saved_); }

void GdiPainter::fill(const PixelRect &area, Colour colour) {
    SetDCBrushColor(device_, colour.value);
    PatBlt(device_, area.left, area.top, area.width, area.height, PATCOPY);
}

void GdiPainter::tick(const SceneTick &tick) {
    LOGBRUSH brush{BS_SOLID, tick.colour.value, 0};
    const HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                  static_cast<DWORD>(std::max(1L, std::lround(tick.penWidth))),
                                  &brush, 0, nullptr);
    const HGDIOBJ before = SelectObject(device_, pen);
    std::array<POINT, 3> points{};
    std::transform(tick.points.begin(), tick.points.end(), points.begin(),
                   [](const SceneTick::Point &point) {
                       return POINT{std::lround(point.x), std::lround(point.y)};
                   });
    Polyline(device_, points.data(), static_cast<int>(points.size()));
    SelectObject(device_, before);
    DeleteObject(pen);
}

void GdiPainter::text(const SceneText &text) {
    const CellFont &font = fonts_.of(text.font);
    if (font_ != &font) {
        SelectObject(device_, font.handle);
        font_ = &font;
    }
    SetTextColor(device_, text.colour.value);
    widen(text.text, shown_);
    const PixelRect &inner = text.inner;
    const bool isTooWide = text.hasLineEnds || font.widthOf(device_, shown_) > inner.width;
    if (isTooWide && text.mayWrap && inner.height >= 2 * font.height) {
        drawWrapped(text);
        return;
    }
    if (text.hasLineEnds)
        replaceLineEnds(shown_);
    if (isTooWide && text.tooWide == TooWide::Hashes)
        shown_.assign(
            static_cast<std::size_t>(std::max(1, inner.width / font.widthOf(device_, L"#"))), L'#');
    else if (isTooWide)
        shown_ = dotted(shown_, inner.width);
    drawLine(shown_, text, aligned(inner.top, inner.height, font.height, text.down));
}

void GdiPainter::drawLine(std::wstring_view line, const SceneText &text, int top) {
    const RECT room = toRect(text.room);
    const int left =
        aligned(text.inner.left, text.inner.width, font_->widthOf(device_, line), text.across);
    // Clipping costs a little, and most texts fit.
    const bool isClipped = top < room.top || top + font_->height > room.bottom ||
                           text.room.width < text.inner.width || left < text.inner.left;
    ExtTextOutW(device_, left, top, isClipped ? ETO_CLIPPED : 0, &room, line.data(),
                static_cast<UINT>(line.size()), nullptr);
}

std::size_t GdiPainter::fitting(std::wstring_view line, int room) const {
    int count = 0;
    SIZE size{};
    GetTextExtentExPointW(device_, line.data(), static_cast<int>(line.size()), std::max(0, room),
                          &count, nullptr, &size);
    // Half a character is none.
    if (count > 1 && IS_HIGH_SURROGATE(line[static_cast<std::size_t>(count) - 1]))
        --count;
    return static_cast<std::size_t>(std::max(1, count));
}

std::wstring GdiPainter::dotted(std::wstring_view line, int room) const {
    if (font_->widthOf(device_, line) <= room)
        return std::wstring(line);
    const int rest = room - font_->widthOf(device_, {&dots, 1});
    std::wstring result(rest > 0 ? line.substr(0, fitting(line, rest)) : line.substr(0, 0));
    return result += dots;
}

void GdiPainter::drawWrapped(const SceneText &text) {
    const PixelRect &room = text.inner;
    const auto most = static_cast<std::size_t>(std::max(1, room.height / font_->height));
    std::vector<std::wstring> lines;
    std::wstring_view rest = shown_;
    while (!rest.empty() && lines.size() < most) {
        std::wstring_view line = rest.substr(0, rest.find(L'\n'));
        std::size_t next = line.size() + 1;
        if (font_->widthOf(device_, line) > room.width) {
            const std::size_t count = std::min(line.size(), fitting(line, room.width));
            const std::size_t blank = line.rfind(L' ', count);
            next = blank != std::wstring_view::npos && blank > 0 ? blank + 1 : count;
            line = line.substr(0, next);
        }
        if (lines.size() + 1 == most && next < rest.size()) {
            std::wstring last(rest);
            replaceLineEnds(last);
            lines.push_back(dotted(last, room.width));
            break;
        }
        lines.emplace_back(line.substr(0, line.find_last_not_of(L" \r") + 1));
        rest = rest.substr(std::min(next, rest.size()));
    }
    int top =
        aligned(room.top, room.height, static_cast<int>(lines.size()) * font_->height, text.down);
    for (const std::wstring &line : lines) {
        drawLine(line, text, top);
        top += font_->height;
    }
}

} // namespace tablio::com
