/// What a face that draws single lines makes of a cell's text, and what it has to paint again.

#include <tablio/damage.h>
#include <tablio/line_painter.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <string>

namespace tablio {

namespace {

/// Each character is ten pixels wide, and a line 20 high.
class Drawn final : public LinePainter {
public:
    std::string lines;

    void fill(const PixelRect &area, Colour /*colour*/) override {
        lines += "_" + std::to_string(area.width);
    }
    void tick(const SceneTick & /*tick*/) override {}
    void line(const std::string &text, int /*font*/, int left, int /*top*/,
              Colour /*colour*/) override {
        lines += (lines.empty() ? "" : "|") + (left > 0 ? std::to_string(left) + ":" : "") + text;
    }
    void clip(const PixelRect & /*room*/) override { lines += "["; }
    void unclip() override { lines += "]"; }
    int prepared(int /*number*/, const Font & /*font*/) override { return 20; }
    double measured(int /*font*/, std::string_view text) override {
        double wide = 0;
        for (const char byte : text)
            wide += (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U ? 0 : 10;
        return wide;
    }
};

std::string drawn(std::string_view text, int width, int height, bool mayWrap = false,
                  TooWide tooWide = TooWide::Dots, Third across = Third::Near,
                  const Font &font = {}) {
    SceneText scene{text, {0, 0, width, height}, {0, 0, width, height}, {}, font};
    scene.across = across;
    scene.hasLineEnds = text.find('\n') != std::string_view::npos;
    scene.mayWrap = mayWrap;
    scene.tooWide = tooWide;
    Drawn painter;
    painter.text(scene);
    return painter.lines;
}

TEST(LinePainterTest, BreaksAndShortensWhatIsTooWide) {
    const struct {
        const char *text;
        int width, height;
        bool mayWrap;
        TooWide tooWide;
        const char *lines;
    } cases[] = {
        {"whole text", 100, 20, false, TooWide::Dots, "whole text"},
        {"whole text", 99, 20, false, TooWide::Dots, "whole te…"},
        {"whole text", 70, 20, false, TooWide::Dots, "whole…"},
        {"grün grün", 50, 20, false, TooWide::Dots, "grün…"},
        {"x", 5, 20, false, TooWide::Dots, "…"},
        {"1,234.00", 70, 20, false, TooWide::Hashes, "#######"},
        {"1", 5, 20, false, TooWide::Hashes, "#"},
        {"one\ntwo", 200, 20, true, TooWide::Dots, "one two"},
        {"one\ntwo", 200, 40, true, TooWide::Dots, "one|two"},
        {"one two three", 70, 60, true, TooWide::Dots, "one two|three"},
        {"one two three", 40, 60, true, TooWide::Dots, "one|two|thr…"},
        {"one two three", 70, 40, true, TooWide::Dots, "one two|three"},
        {"one two\nthree four", 70, 40, true, TooWide::Dots, "one two|three…"},
        {"überaus", 30, 60, true, TooWide::Dots, "übe|rau|s"},
        {"a\n\nb", 200, 80, true, TooWide::Dots, "a||b"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(drawn(c.text, c.width, c.height, c.mayWrap, c.tooWide), c.lines)
            << c.text << " in " << c.width;
    EXPECT_EQ(drawn("abc", 51, 10, false, TooWide::Dots, Third::Middle), "[|11:abc]");
    EXPECT_EQ(drawn("abc", 50, 20, false, TooWide::Dots, Third::Far, {"", 0, false, false, true}),
              "20:abc_30");
}

std::string told(const Damage::Frame &frame) {
    std::string text = "move " + std::to_string(frame.move.distance);
    for (const PixelRect &area : frame.areas)
        text += " +" + std::to_string(area.top) + "/" + std::to_string(area.height);
    return text;
}

TEST(DamageTest, MovesWhatStaysInSightAndPaintsTheRest) {
    Tablio table;
    table.setRowMinHeight(300);
    table.setRows(200);
    table.input().resized(6000, 6000);
    Damage damage;
    const auto scrollTo = [&](int row) {
        table.input().scrollTo(row, 0);
        damage.scroll(table.screen(), 2);
    };
    scrollTo(1);
    EXPECT_EQ(told(damage.take(800, 800)), "move 0 +0/800");
    const Rect row = table.screen().cellRect({5, 0});
    const int height = row.height * 2 / twipsPerPixel;
    scrollTo(3);
    damage.add(row, 2);
    EXPECT_EQ(told(damage.take(800, 800)),
              "move " + std::to_string(-2 * height) + " +" + std::to_string(row.top * 2 / 15) +
                  "/" + std::to_string(height) + " +" + std::to_string(800 - 2 * height) + "/" +
                  std::to_string(2 * height));
    // Farther than what is in sight, and at a scale that moves by parts of a pixel.
    scrollTo(150);
    EXPECT_EQ(told(damage.take(800, 800)), "move 0 +0/800");
    table.input().scrollTo(151, 0);
    damage.scroll(table.screen(), 1.5);
    EXPECT_EQ(told(damage.take(800, 800)), "move 0 +0/800");
}

} // namespace

} // namespace tablio
