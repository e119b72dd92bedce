#pragma once

/// Paints scenes for a platform that draws and measures nothing but single lines of text, such as a
/// canvas: texts are broken, shortened, placed, clipped and underlined here. Fonts are known to the
/// platform by numbers. What has been measured is kept, until the platform's fonts change.

#include <tablio/scene.h>

#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

/// One font as the platform has it.
struct LineFont {
    Font asked;
    int number = 0;
    /// Of a line, in device pixels, as the widths are.
    int height = 0;
    std::map<std::string, double, std::less<>> widths;
};

/// Places are device pixels.
class LinePainter : public ScenePainter {
public:
    void text(const SceneText &text) final;
    /// The platform's own font, its scale or any other is another one now.
    void forgetFonts() { fonts_.clear(); }

protected:
    /// Draws a line with its top left corner there.
    virtual void line(const std::string &text, int font, int left, int top, Colour colour) = 0;
    /// Nothing is drawn outside of this until unclip().
    virtual void clip(const PixelRect &room) = 0;
    virtual void unclip() = 0;
    /// From now on the font has this number. Answers how high its lines are.
    virtual int prepared(int number, const Font &font) = 0;
    virtual double measured(int font, std::string_view text) = 0;

private:
    LineFont &fontOf(const Font &font);
    double widthOf(LineFont &font, std::string_view text);
    std::vector<std::string> linesOf(const SceneText &text, LineFont &font);

    std::list<LineFont> fonts_;
};

} // namespace tablio
