/// `text_face` shows a table in the terminal; with scenario files it plays them through this face.

#include "text_face.h"

#include <tablio/testing/player.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <sys/ioctl.h>
#include <unistd.h>

using namespace tablio;

namespace {

/// After each key the open editor has to be in the picture.
class TextDriver final : public scenario::Driver {
public:
    void create(Twips width, Twips height) override {
        table_ = std::make_unique<Tablio>();
        text_ = TextFace();
        text_.show(table_.get());
        face.wrap(&text_);
        face.clipboard.reset(); // the text face has one of its own
        table_->setFace(&face);
        table_->InitProperties();
        resize(width, height);
    }
    void destroy() override {
        text_.show(nullptr);
        table_.reset();
    }
    [[nodiscard]] Tablio *core() override { return table_.get(); }
    void setClipboard(std::string_view text) override { text_.clipboard = text; }
    void strike(const scenario::KeyStroke &stroke) override {
        text_.menuEntry = -1; // who types on has put the menu aside
        text_.press(stroke.key, stroke.shift, stroke.character);
        text_.draw(75, 15);
        const auto editor = table_ ? table_->screen().editor() : std::nullopt;
        const int line = editor ? editor->frame.top / TextFace::lineHeight : 15;
        if (line < 15 && editor->text.size() < 7 &&
            text_.line(line, false).find(editor->text) == std::string::npos)
            throw scenario::ScriptError("no open editor in the picture:\n" +
                                        text_.line(line, false));
    }
    void chooseMenuEntry(MenuEntry entry) override {
        text_.menuEntry = 0;
        while (text_.menuEntry != static_cast<int>(entry))
            text_.press(Key::Down, Shift::None, 0);
        text_.press(Key::Enter, Shift::None, 0);
    }

private:
    std::unique_ptr<Tablio> table_;
    TextFace text_;
};

/// What ends ESC [ NUMBER ; MODIFIERS LAST; a number of 1 may be left out, and [ be an O.
struct Sequence {
    int number;
    char last;
    KeyCode key;
};
constexpr Sequence sequences[] = {
    {1, 'A', Key::Up},     {1, 'B', Key::Down},   {1, 'C', Key::Right},  {1, 'D', Key::Left},
    {1, 'F', Key::End},    {1, 'H', Key::Home},   {1, 'Q', Key::F2},     {1, 'S', Key::F4},
    {2, '~', Key::Insert}, {3, '~', Key::Delete}, {5, '~', Key::PageUp}, {6, '~', Key::PageDown},
    {21, '~', Key::F10},   {29, '~', Key::Menu}};

/// Answers what stands behind the sequence.
const char *pressSequence(TextFace &face, const char *text) {
    int number = 1;
    int modifiers = 1; // less one, the bits are Shift, Alt and Ctrl
    int length = 0;
    if (std::sscanf(text, "%d;%d%n", &number, &modifiers, &length) < 2)
        std::sscanf(text, "%d%n", &number, &length);
    const int bits = modifiers - 1;
    const int shift = (bits & 1) | (bits & 2) << 1 | (bits & 4) >> 1;
    for (const Sequence &each : sequences) {
        if (each.number == number && each.last == text[length])
            face.press(each.key, static_cast<ShiftState>(shift), 0);
    }
    return text + length + 1;
}

/// Esc alone is the key Esc, and before anything else the beginning of a sequence.
const char *pressFirst(TextFace &face, Input &input, const char *text) {
    if (*text == '\x1b' && (text[1] == '[' || text[1] == 'O') && text[2] != '\0')
        return pressSequence(face, text + 2);
    const auto byte = static_cast<unsigned char>(*text);
    const auto upper = static_cast<KeyCode>(byte & ~0x20);
    if (byte == 0x7F) {
        face.press(Key::Back, Shift::None, 8);
    } else if (std::isalpha(byte) != 0) {
        face.press(upper, upper == byte ? Shift::Shift : Shift::None, byte);
    } else if (std::isdigit(byte) != 0 || std::strchr(" \r\t\x1b", byte) != nullptr) {
        face.press(byte, Shift::None, byte);
    } else if (byte < ' ') {
        face.press(static_cast<KeyCode>(byte | 0x40), Shift::Ctrl, byte);
    } else if (std::strchr(",-.", byte) != nullptr) {
        face.press(static_cast<KeyCode>(byte + 144), Shift::None, byte);
    } else { // no key that the control knows: all that is left as a text
        input.typeText(text);
        return text + std::strlen(text);
    }
    return text + 1;
}

void fill(Tablio &table) {
    const auto input = TColumnStyle::ColumnInput;
    const auto right = TColumnAlignment::ColumnRight;
    table.InitProperties();
    table.setRows(20);
    table.setCols(5);
    table.setFixedCols(1);
    table.setWithFixedColumn(true);
    table.setPrimaryColumn(1);
    table.SetColProperty(0, "No.", 600, TColumnStyle::ColumnFixedWithAutoNumber);
    table.SetColProperty(1, "Article", 2400, input);
    table.SetColProperty(2, "Unit", 1200, input, TColumnType::ColumnCombo);
    table.SetColProperty(3, "Price", 1440, input, TColumnType::ColumnDecimal, right, right, 12,
                         "#,##0.00");
    table.SetColProperty(4, "Due", 1440, input, TColumnType::ColumnDate);
    table.Show();
    for (const char *unit : {"Bag", "Bottle", "Piece"})
        table.ComboAddItem(unit);
}

} // namespace

int main(int argc, char **argv) {
    if (argc > 1) {
        TextDriver driver;
        return scenario::runScenarioFiles(driver, argc, argv);
    }
    TextFace face;
    Tablio table;
    face.show(&table);
    table.setFace(&face);
    fill(table);
    table.input().focusEntered();
    std::system("stty raw -echo; tput smcup; tput civis");
    char in[4096] = "";
    while (std::strcmp(in, "\x11") != 0) { // Ctrl+Q
        winsize size{};
        ioctl(STDOUT_FILENO, TIOCGWINSZ, &size);
        table.input().resized(size.ws_col * TextFace::characterWidth,
                              size.ws_row * TextFace::lineHeight);
        face.draw(size.ws_col, size.ws_row);
        for (int line = 0; line < size.ws_row; ++line)
            std::printf("\x1b[%dH%s", line + 1, face.line(line, true).c_str());
        std::fflush(stdout);
        const ssize_t count = read(STDIN_FILENO, in, sizeof in - 1);
        if (count <= 0)
            break;
        in[count] = '\0';
        for (const char *rest = in; *rest != '\0';)
            rest = pressFirst(face, table.input(), rest);
    }
    std::system("tput cnorm; tput rmcup; stty sane");
    return 0;
}
