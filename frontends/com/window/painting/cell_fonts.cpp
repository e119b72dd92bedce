#include "window/painting/cell_fonts.h"

#include "object/text.h"

#include <algorithm>
#include <cmath>

namespace tablio::com {

namespace {

constexpr wchar_t firstWidth = L' ';
constexpr double pixelsPerPoint = 96.0 / 72;

HFONT madeFont(const Font &font, const Font &standard, double scale) {
    LOGFONTW wanted{};
    const double points = font.size > 0 ? font.size : standard.size;
    wanted.lfHeight = -static_cast<LONG>(std::lround(points * pixelsPerPoint * scale));
    const bool isOwn = !font.name.empty();
    const bool bold = font.bold || (!isOwn && standard.bold);
    wanted.lfWeight = font.weight > 0 ? font.weight : bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = font.italic || (!isOwn && standard.italic) ? 1 : 0;
    wanted.lfUnderline = font.underline ? 1 : 0;
    wanted.lfStrikeOut = font.strikethrough ? 1 : 0;
    wanted.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = wide(isOwn ? font.name : standard.name);
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1),
                wanted.lfFaceName);
    return CreateFontIndirectW(&wanted);
}

} // namespace

int CellFont::widthOf(HDC device, std::wstring_view line) const {
    int width = 0;
    for (const wchar_t character : line) {
        const auto at = static_cast<std::size_t>(character - firstWidth);
        if (at >= widths.size()) {
            SIZE size{};
            GetTextExtentPoint32W(device, line.data(), static_cast<int>(line.size()), &size);
            return size.cx;
        }
        width += widths[at];
    }
    return width;
}

void CellFonts::setDefault(const Font &font, double scale) {
    clear();
    default_ = font;
    scale_ = scale;
}

void CellFonts::clear() {
    for (const CellFont &font : fonts_)
        DeleteObject(font.handle);
    fonts_.clear();
}

const CellFont &CellFonts::of(const Font &font) {
    const auto known = std::find_if(fonts_.begin(), fonts_.end(),
                                    [&](const CellFont &each) { return each.asked == font; });
    if (known != fonts_.end())
        return *known;
    CellFont &made = fonts_.emplace_back();
    made.asked = font;
    made.handle = madeFont(font, default_, scale_);
    const HDC device = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(device, made.handle);
    TEXTMETRICW metrics{};
    GetTextMetricsW(device, &metrics);
    made.height = metrics.tmHeight;
    GetCharWidth32W(device, firstWidth, firstWidth + static_cast<UINT>(made.widths.size()) - 1,
                    made.widths.data());
    SelectObject(device, before);
    DeleteDC(device);
    return made;
}

} // namespace tablio::com
