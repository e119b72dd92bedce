#pragma once

/// A face in a terminal: the table, its cursor, the open editor, list, calendar and menu as
/// characters. It is told by `Face`, tells by `Input` and reads by `Screen`; it decides nothing.

#include <tablio/tablio.h>

#include <string>
#include <string_view>
#include <vector>

class TextFace final : public tablio::Face, private tablio::ScenePainter {
public:
    /// One character of the terminal, 8 by 20 pixels.
    static constexpr tablio::Twips characterWidth = 120;
    static constexpr tablio::Twips lineHeight = 300;

    /// Shows this control from now on, or none.
    void show(tablio::Tablio *table) { table_ = table; }
    /// A key, and the character that it types or 0.
    void press(tablio::KeyCode key, tablio::ShiftState shift, char32_t character);
    /// Makes the picture of how it is now.
    void draw(int columns, int lines);
    /// A line of the picture; for a terminal what is marked is in reverse.
    [[nodiscard]] std::string line(int index, bool forTerminal) const;

    // What only the platform knows.
    std::string clipboard;
    std::string message;
    /// The entry that the menu is on; −1 while it is closed.
    int menuEntry = -1;

    void shown() override;
    void popUpMenu(tablio::Twips x, tablio::Twips y) override;
    void showWarning(std::string_view title, std::string_view text) override;
    std::string clipboardText() override { return clipboard; }
    void setClipboardText(std::string_view text) override { clipboard = text; }
    tablio::Date today() const override;

private:
    struct Character {
        std::string bytes = " ";
        bool isMarked = false;
    };

    void fill(const tablio::PixelRect &area, tablio::Colour colour) override;
    void text(const tablio::SceneText &text) override;
    void tick(const tablio::SceneTick &tick) override;

    void pressInMenu(tablio::KeyCode key);
    void drawEditor(const tablio::ScreenEditor &editor);
    void drawCalendar(const tablio::Rect &place);
    void drawMenu();
    /// What is beyond the picture's edges is drawn nowhere.
    [[nodiscard]] Character &at(int column, int line);
    /// Fills the room, with blanks behind the text; dots end a text that is too long.
    void put(int column, int line, std::string_view text, int room, bool isMarked = false);

    tablio::Tablio *table_ = nullptr;
    std::vector<std::vector<Character>> picture_;
    Character nowhere_;
    int menuColumn_ = 0;
    int menuLine_ = 0;
};
