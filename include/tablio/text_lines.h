#pragma once

/// What becomes of one cell's text when it is drawn: broken, shortened and placed as its scene
/// asks. A face whose platform draws nothing but single lines uses it. It measures by what the face
/// answers and draws nothing.

#include <tablio/scene.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

/// Its top left corner in device pixels.
struct TextLine {
    std::string text;
    int left = 0;
    int top = 0;
    int width = 0;
};

/// How wide a text is in the cell's font, in device pixels.
using TextWidth = std::function<double(std::string_view text)>;

/// At least one line. Each is `lineHeight` device pixels high, so that the last one may reach
/// beyond the text's room; a face clips it there.
[[nodiscard]] std::vector<TextLine> linesOf(const SceneText &text, int lineHeight,
                                            const TextWidth &width);

} // namespace tablio
