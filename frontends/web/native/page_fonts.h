#pragma once

/// The fonts that cells are drawn in, as the page knows and measures them. What has been measured
/// is kept until the page has another font or scale.

#include <tablio/types.h>

#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>

namespace tablio::web {

class Grid;

struct PageFont {
    Font asked;
    /// The page's name for it.
    int number = 0;
    /// Of a line, in device pixels, as the widths are.
    int height = 0;
    std::map<std::string, double, std::less<>> widths;

    [[nodiscard]] double widthOf(std::string_view text, const Grid &grid);
};

class PageFonts {
public:
    /// The page's own font, which completes others. Sizes are points.
    std::string families;
    double size = 0;
    int weight = 400;
    bool isItalic = false;

    [[nodiscard]] PageFont &of(const Font &font, const Grid &grid);
    /// As CSS has it, in pixels of which there are so many to a logical one.
    [[nodiscard]] std::string css(const Font &font, double scale) const;
    void forget() { fonts_.clear(); }

private:
    std::list<PageFont> fonts_;
};

} // namespace tablio::web
