#include <tablio/line_painter.h>

#include "model/text/utf16.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>

namespace tablio {

namespace {

constexpr std::string_view dots = "…";
constexpr std::string_view blanks = " \t\r\n";

/// In the middle of an odd rest a text stands nearer to the end.
int aligned(int from, int size, int length, Third third) {
    if (third == Third::Near)
        return from;
    return third == Third::Middle ? from + static_cast<int>(std::ceil((size - length) / 2.0))
                                  : from + size - length;
}

std::string_view withoutEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Each run of blanks as one, and none at the ends.
std::string onOneLine(std::string_view text) {
    std::string line;
    for (const char byte : text) {
        const bool isBlank = blanks.find(byte) != std::string_view::npos;
        if (!isBlank)
            line += byte;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    return std::string(withoutEnd(line));
}

using Width = std::function<double(std::string_view)>;

class Breaker {
public:
    Breaker(double room, Width width) : room_(room), width_(std::move(width)) {}

    [[nodiscard]] bool fits(std::string_view text) const { return width_(text) <= room_; }
    [[nodiscard]] std::string shortened(std::string_view text) const {
        if (fits(text))
            return std::string(text);
        return std::string(withoutEnd(text.substr(0, fitting(text, dots)))).append(dots);
    }
    [[nodiscard]] std::string hashes() const {
        return std::string(static_cast<std::size_t>(std::max(1.0, room_ / width_("#"))), '#');
    }
    /// In whole lines, so many at most.
    [[nodiscard]] std::vector<std::string> broken(std::string_view text, std::size_t most) const {
        std::vector<std::string> lines;
        while (!text.empty() && lines.size() < most) {
            const std::size_t next = lineEnd(text);
            if (lines.size() + 1 == most && next < text.size())
                lines.push_back(shortened(onOneLine(text)));
            else
                lines.emplace_back(withoutEnd(text.substr(0, next)));
            text.remove_prefix(next);
        }
        return lines;
    }

private:
    /// How many bytes of it fit with this behind them; characters stay whole.
    [[nodiscard]] std::size_t fitting(std::string_view text, std::string_view end) const {
        std::vector<std::size_t> ends;
        for (std::size_t at = 0; at < text.size(); ends.push_back(at))
            at += utf16::characterAt(text, at).bytes;
        const auto beyond = std::partition_point(ends.begin(), ends.end(), [&](std::size_t at) {
            return fits(std::string(text.substr(0, at)).append(end));
        });
        return beyond == ends.begin() ? 0 : *(beyond - 1);
    }

    /// Where the next line begins: behind a line end, between words, or in a word that is wider
    /// than the room.
    [[nodiscard]] std::size_t lineEnd(std::string_view text) const {
        const std::size_t lineFeed = text.find('\n');
        const std::string_view line = text.substr(0, lineFeed);
        if (fits(withoutEnd(line)))
            return lineFeed == std::string_view::npos ? text.size() : lineFeed + 1;
        const std::size_t count = std::max(fitting(line, {}), utf16::characterAt(line, 0).bytes);
        // A blank that no longer fits ends the line, too.
        const std::size_t blank = line.rfind(' ', count);
        return blank == std::string_view::npos || blank == 0 ? count : blank + 1;
    }

    double room_;
    Width width_;
};

} // namespace

double LinePainter::widthOf(LineFont &font, std::string_view text) {
    constexpr std::size_t most = 4000;
    const auto known = font.widths.find(text);
    if (known != font.widths.end())
        return known->second;
    if (font.widths.size() == most)
        font.widths.clear();
    return font.widths.emplace(text, measured(font.number, text)).first->second;
}

LineFont &LinePainter::fontOf(const Font &font) {
    const auto known = std::find_if(fonts_.begin(), fonts_.end(),
                                    [&](const LineFont &one) { return one.asked == font; });
    if (known != fonts_.end())
        return *known;
    const int number = static_cast<int>(fonts_.size());
    return fonts_.emplace_back(LineFont{font, number, prepared(number, font), {}});
}

std::vector<std::string> LinePainter::linesOf(const SceneText &text, LineFont &font) {
    const PixelRect &inner = text.inner;
    const Breaker breaker(inner.width, [&](std::string_view part) { return widthOf(font, part); });
    if (!text.hasLineEnds && breaker.fits(text.text))
        return {std::string(text.text)};
    if (text.mayWrap && inner.height >= 2 * font.height)
        return breaker.broken(text.text, static_cast<std::size_t>(inner.height / font.height));
    if (text.tooWide == TooWide::Hashes)
        return {breaker.hashes()};
    return {breaker.shortened(onOneLine(text.text))};
}

void LinePainter::text(const SceneText &text) {
    LineFont &font = fontOf(text.font);
    const std::vector<std::string> lines = linesOf(text, font);
    const int height = font.height * static_cast<int>(lines.size());
    const bool isClipped = height > text.room.height;
    if (isClipped)
        clip(text.room);
    int top = aligned(text.inner.top, text.inner.height, height, text.down);
    for (const std::string &words : lines) {
        const int width = static_cast<int>(std::lround(widthOf(font, words)));
        const int left = aligned(text.inner.left, text.inner.width, width, text.across);
        line(words, font.number, left, top, text.colour);
        const auto rule = [&](double down) {
            fill({left, top + static_cast<int>(font.height * down), width,
                  std::max(1, font.height / 16)},
                 text.colour);
        };
        if (text.font.underline)
            rule(0.87);
        if (text.font.strikethrough)
            rule(0.54);
        top += font.height;
    }
    if (isClipped)
        unclip();
}

} // namespace tablio
