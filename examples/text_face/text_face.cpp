#include "text_face.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <utility>

using namespace tablio;

namespace {

constexpr Colour paper{0xFFFFFF};
constexpr Colour ink{0x000000};

int columnOf(double pixel) { return static_cast<int>(std::lround(pixel / 8)); }
int lineOf(double pixel) { return static_cast<int>(std::lround(pixel / 20)); }
int columnAt(Twips x) { return columnOf(x / 15.0); }
int lineAt(Twips y) { return lineOf(y / 15.0); }

/// Of a text in UTF-8, one a UTF-16 unit, as the control counts them.
std::vector<std::string> charactersOf(std::string_view text) {
    std::vector<std::string> characters;
    for (const char byte : text) {
        if ((static_cast<unsigned char>(byte) & 0xC0) == 0x80 && !characters.empty())
            characters.back() += byte;
        else if ((static_cast<unsigned char>(byte) & 0xF8) == 0xF0)
            characters.insert(characters.end(), {"", std::string(1, byte)});
        else
            characters.emplace_back(1, byte);
    }
    return characters;
}

} // namespace

/// How large a calendar is, is the face's business: a title, the weekdays and six weeks.
void TextFace::shown() {
    const ScreenWidget calendar = table_->screen().widget(WidgetId::picDate);
    if (calendar.isVisible && calendar.place.width != 22 * characterWidth)
        table_->input().calendarSized(22 * characterWidth, 8 * lineHeight);
}

void TextFace::popUpMenu(Twips x, Twips y) {
    menuEntry = 0;
    menuColumn_ = columnAt(x);
    menuLine_ = lineAt(y);
}

void TextFace::showWarning(std::string_view title, std::string_view text) {
    message = std::string(title) + ": " + std::string(text);
}

Date TextFace::today() const {
    const std::time_t now = std::time(nullptr);
    const std::tm day = *std::localtime(&now);
    return {day.tm_year + 1900, day.tm_mon + 1, day.tm_mday};
}

void TextFace::press(KeyCode key, ShiftState shift, char32_t character) {
    message.clear();
    if (menuEntry >= 0)
        pressInMenu(key);
    else if (table_->input().keyDown(key, shift) == Dealt::No && character != 0 &&
             table_ != nullptr) // a handler may have taken the control away
        table_->input().keyPress(character);
}

void TextFace::pressInMenu(KeyCode key) {
    const auto menu = table_->screen().menu();
    const int count = static_cast<int>(menu.size());
    if (key == Key::Up || key == Key::Down) {
        do
            menuEntry = (menuEntry + (key == Key::Down ? 1 : count - 1)) % count;
        while (menu.at(menuEntry).caption.empty());
    } else if (key == Key::Enter || key == Key::Escape) {
        const MenuEntry chosen = menu.at(std::exchange(menuEntry, -1)).entry;
        if (key == Key::Enter)
            table_->input().menuChosen(chosen);
    }
}

void TextFace::draw(int columns, int lines) {
    picture_.assign(lines, std::vector<Character>(columns));
    if (table_ == nullptr)
        return;
    const Screen &screen = table_->screen();
    const Palette palette{paper, ink, ink, ink, ink, paper, ink, ink, ink, ink, ink, ink};
    const PixelRect all{0, 0, columns * 8, lines * 20};
    screen.paint({&all, 1}, {palette, 1, screen.focusOwner().has_value()}, *this);
    if (const std::optional<ScreenEditor> editor = screen.editor())
        drawEditor(*editor);
    if (const ScreenWidget calendar = screen.widget(WidgetId::picDate); calendar.isVisible)
        drawCalendar(calendar.place);
    if (menuEntry >= 0)
        drawMenu();
    if (!message.empty())
        put(0, lines - 1, message, columns, true);
}

/// Lines are thinner than a character and are left out.
void TextFace::fill(const PixelRect &area, Colour colour) {
    const int column = columnOf(area.left);
    for (int line = lineOf(area.top); line < lineOf(area.bottom()); ++line)
        put(column, line, {}, columnOf(area.right()) - column, colour != paper);
}

void TextFace::text(const SceneText &text) {
    const int column = (text.inner.left + 7) / 8; // whole characters only
    const int line = lineOf((text.inner.top + text.inner.bottom() - 20) / 2.0);
    const int room = std::max(1, text.inner.right() / 8 - column);
    std::string shown(text.text);
    std::replace(shown.begin(), shown.end(), '\n', ' ');
    const int rest = room - static_cast<int>(charactersOf(shown).size());
    if (rest < 0 && text.tooWide == TooWide::Hashes)
        shown.assign(room, '#');
    const int before = std::max(0, text.across == Third::Far      ? rest
                                   : text.across == Third::Middle ? rest / 2
                                                                  : 0);
    put(column + before, line, shown, room - before, at(column, line).isMarked);
}

void TextFace::tick(const SceneTick &tick) {
    at(columnOf(tick.points[1].x - 4), lineOf(tick.points[1].y - 10)).bytes = "x";
}

/// The text is moved along so that the caret is to be seen.
void TextFace::drawEditor(const ScreenEditor &editor) {
    const int column = columnAt(editor.frame.left);
    const int line = lineAt(editor.frame.top);
    const int room = columnAt(editor.frame.right()) - column;
    const std::vector<std::string> characters = charactersOf(editor.text);
    const int length = static_cast<int>(characters.size());
    const int start =
        std::min(editor.alignsRight ? std::max(1, room - length - 1) : 1, room - 1 - editor.caret);
    put(column, line, {}, room);
    for (int index = std::max(0, -start); index < std::min(length, room - start); ++index)
        at(column + start + index, line).bytes = characters[index];
    const auto [from, to] = std::minmax(editor.anchor, editor.caret);
    for (int index = from; index < std::max(to, from + 1); ++index)
        at(column + start + index, line).isMarked = true;
    const ScreenList list = table_->screen().list();
    for (int item = 0; list.isDropped && item < static_cast<int>(list.items.size()); ++item)
        put(column, line + 1 + item, " " + list.items[item], room, item != list.chosen);
}

void TextFace::drawCalendar(const Rect &place) {
    const int column = columnAt(place.left);
    int line = lineAt(place.top);
    const Date day = table_->screen().calendarDay();
    put(column, line++, " " + std::to_string(day.month) + "/" + std::to_string(day.year), 22, true);
    put(column, line, " Mo Tu We Th Fr Sa Su", 22, true);
    int index = 0;
    for (const CalendarMonth::Day &each : table_->screen().calendarMonth(0).days) {
        if (index % 7 == 0)
            put(column, ++line, {}, 22, true);
        put(column + index++ % 7 * 3 + 1, line, std::to_string(each.date.day), 2, !each.isChosen);
    }
}

void TextFace::drawMenu() {
    int index = 0;
    for (const ScreenMenuEntry &entry : table_->screen().menu()) {
        std::string caption = (entry.isChecked ? "x " : "  ") + std::string(entry.caption);
        caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
        if (!entry.isEnabled)
            caption = entry.caption.empty() ? "  ------------" : "  (" + caption.substr(2) + ")";
        put(menuColumn_, menuLine_ + index, caption, 20, index != menuEntry);
        ++index;
    }
}

TextFace::Character &TextFace::at(int column, int line) {
    const bool isInside = line >= 0 && line < static_cast<int>(picture_.size()) && column >= 0 &&
                          column < static_cast<int>(picture_[line].size());
    return isInside ? picture_[line][column] : nowhere_;
}

void TextFace::put(int column, int line, std::string_view text, int room, bool isMarked) {
    std::vector<std::string> characters = charactersOf(text);
    if (static_cast<int>(characters.size()) > room && room > 0)
        characters.at(room - 1) = "…";
    characters.resize(std::max(0, room), " ");
    for (int index = 0; index < room; ++index)
        at(column + index, line) = {characters[index], isMarked};
}

std::string TextFace::line(int index, bool forTerminal) const {
    std::string result;
    for (const Character &character : picture_.at(index)) {
        if (forTerminal)
            result += character.isMarked ? "\x1b[7m" : "\x1b[m";
        result += character.bytes;
    }
    return result;
}
