#include "values.h"

#include "model/text/utf16.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace tablio::scenario {

namespace {

template <typename T> struct Name {
    std::string_view name;
    T value;
};

constexpr Name<KeyCode> keyNames[] = {
    {"Backspace", Key::Back},
    {"Tab", Key::Tab},
    {"Enter", Key::Enter},
    {"Esc", Key::Escape},
    {"Space", Key::Space},
    {"PageUp", Key::PageUp},
    {"PageDown", Key::PageDown},
    {"End", Key::End},
    {"Home", Key::Home},
    {"Left", Key::Left},
    {"Up", Key::Up},
    {"Right", Key::Right},
    {"Down", Key::Down},
    {"Insert", Key::Insert},
    {"Delete", Key::Delete},
    {"Menu", Key::Menu},
    {"KeypadDecimal", Key::Decimal},
    {"F2", Key::F2},
    {"F4", Key::F4},
    {"F10", Key::F10},
    {";", 186},
    {"=", 187},
    {",", 188},
    {"-", 189},
    {".", 190},
    {"/", 191},
    {"`", 192},
    {"[", 219},
    {"\\", 220},
    {"]", 221},
    {"'", 222},
};

/// What keys type with Shift held down.
constexpr std::string_view shiftedKeys = "1234567890;=,-./`[\\]'";
constexpr std::string_view shiftedSigns = "!@#$%^&*():+<_>?~{|}\"";
static_assert(shiftedKeys.size() == shiftedSigns.size());

constexpr Name<ShiftState> shiftNames[] = {
    {"Shift+", Shift::Shift}, {"Ctrl+", Shift::Ctrl}, {"Alt+", Shift::Alt}};

constexpr Name<WidgetId> widgetNames[] = {
    {"Grid", WidgetId::Grid},           {"picText", WidgetId::picText},
    {"txtEdit", WidgetId::txtEdit},     {"picEdit", WidgetId::picEdit},
    {"cboEdit", WidgetId::cboEdit},     {"txtDateEdit", WidgetId::txtDateEdit},
    {"cmdLookup", WidgetId::cmdLookup}, {"cmdCalender", WidgetId::cmdCalender},
    {"picDate", WidgetId::picDate},     {"mvCalender", WidgetId::mvCalender}};

constexpr Name<MenuEntry> menuNames[] = {{"mnuMarkRow", MenuEntry::mnuMarkRow},
                                         {"mnuAddRow", MenuEntry::mnuAddRow},
                                         {"mnuInsertRow", MenuEntry::mnuInsertRow},
                                         {"mnuRemoveRow", MenuEntry::mnuRemoveRow},
                                         {"mnuTableClear", MenuEntry::mnuTableClear}};

[[noreturn]] void fail(std::string_view what, std::string_view text) {
    throw ScriptError(std::string(what) + " expected, not " + inQuotes(text));
}

template <typename T> bool parseWhole(std::string_view text, T &value, int base = 10) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && end == text.data() + text.size();
}

template <typename T, std::size_t size>
T named(const Name<T> (&names)[size], const Token &token, std::string_view what) {
    for (const Name<T> &name : names) {
        if (token.is(name.name))
            return name.value;
    }
    fail(what, token.text);
}

template <typename T, std::size_t size> std::string nameIn(const Name<T> (&names)[size], T value) {
    for (const Name<T> &name : names) {
        if (name.value == value)
            return std::string(name.name);
    }
    return std::to_string(static_cast<int>(value));
}

bool isLetterOrDigit(char32_t character) {
    return (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z') ||
           (character >= U'0' && character <= U'9');
}

KeyCode keyNamed(std::string_view name) {
    if (name.size() == 1 && isLetterOrDigit(static_cast<unsigned char>(name[0])))
        return static_cast<KeyCode>(name[0] >= 'a' ? name[0] - 32 : name[0]);
    for (const Name<KeyCode> &key : keyNames) {
        if (key.name == name)
            return key.value;
    }
    KeyCode code = 0;
    if (parseWhole(name, code))
        return code;
    fail("a key's name", name);
}

char32_t characterOf(KeyCode key, ShiftState shift) {
    const bool isLetter = key >= 'A' && key <= 'Z';
    if ((shift & Shift::Alt) != 0)
        return 0;
    if ((shift & Shift::Ctrl) != 0)
        return isLetter ? static_cast<char32_t>(key & 0x1F) : 0;
    switch (key) {
    case Key::Back:
    case Key::Tab:
    case Key::Enter:
    case Key::Escape:
    case Key::Space:
        return static_cast<char32_t>(key);
    case Key::Decimal:
        return U'.';
    default:
        break;
    }
    if (isLetter)
        return static_cast<char32_t>((shift & Shift::Shift) != 0 ? key : key + 32);
    return key >= '0' && key <= '9' ? static_cast<char32_t>(key) : 0;
}

Colour colourOf(const Token &token) {
    Colour colour;
    if (token.quoted || !token.text.starts_with("&H") ||
        !parseWhole(std::string_view(token.text).substr(2), colour.value, 16))
        fail("a colour such as &H00FF00", token.text);
    return colour;
}

/// "Name size", then bold and italic if so.
Font fontOf(std::string_view text) {
    Font font;
    for (const Token &part : tokensOf(text)) {
        int size = 0;
        if (part.is("bold"))
            font.bold = true;
        else if (part.is("italic"))
            font.italic = true;
        else if (parseWhole(part.text, size))
            font.size = static_cast<float>(size);
        else
            font.name += (font.name.empty() ? "" : " ") + part.text;
    }
    return font;
}

} // namespace

KeyStroke keyStrokeOf(std::string_view name) {
    KeyStroke stroke;
    for (bool found = true; found;) {
        found = false;
        for (const Name<ShiftState> &shift : shiftNames) {
            if (name.size() > shift.name.size() && name.starts_with(shift.name)) {
                stroke.shift = static_cast<ShiftState>(stroke.shift | shift.value);
                name.remove_prefix(shift.name.size());
                found = true;
            }
        }
    }
    stroke.key = keyNamed(name);
    stroke.character = characterOf(stroke.key, stroke.shift);
    return stroke;
}

KeyStroke keyStrokeFor(char32_t character) {
    KeyStroke stroke{0, Shift::None, character};
    if (character == U'\n') {
        stroke = keyStrokeOf("Enter");
    } else if (character == U' ') {
        stroke.key = Key::Space;
    } else if (isLetterOrDigit(character)) {
        const bool isLower = character >= U'a';
        stroke.key = static_cast<KeyCode>(isLower ? character - 32 : character);
        stroke.shift = character >= U'A' && !isLower ? Shift::Shift : Shift::None;
    } else if (character > U' ' && character < 0x7F) {
        const char sign = static_cast<char>(character);
        const std::size_t shifted = shiftedSigns.find(sign);
        const char key = shifted == std::string_view::npos ? sign : shiftedKeys[shifted];
        stroke.key = keyNamed(std::string_view(&key, 1));
        stroke.shift = key == sign ? Shift::None : Shift::Shift;
    }
    return stroke;
}

std::string nameOf(KeyCode key, ShiftState shift) {
    std::string name;
    for (const Name<ShiftState> &part : shiftNames) {
        if ((shift & part.value) != 0)
            name += part.name;
    }
    const bool isOwnName = (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
    return name + (isOwnName ? std::string(1, static_cast<char>(key)) : nameIn(keyNames, key));
}

template <> std::int32_t valueOf<std::int32_t>(const Token &token) {
    std::int32_t value = 0;
    if (token.quoted || !parseWhole(token.text, value))
        fail("a number", token.text);
    return value;
}

template <> bool valueOf<bool>(const Token &token) {
    if (!token.is("True") && !token.is("False"))
        fail("True or False", token.text);
    return token.text == "True";
}

template <> std::string valueOf<std::string>(const Token &token) {
    if (!token.quoted)
        fail("a text in quotes", token.text);
    return token.text;
}

template <> Date valueOf<Date>(const Token &token) {
    Date date;
    const std::string_view text = token.text;
    if (token.quoted || text.size() != 10 || text[4] != '-' || text[7] != '-' ||
        !parseWhole(text.substr(0, 4), date.year) || !parseWhole(text.substr(5, 2), date.month) ||
        !parseWhole(text.substr(8, 2), date.day))
        fail("a date such as 2024-02-29", text);
    return date;
}

template <> WidgetId valueOf<WidgetId>(const Token &token) {
    return named(widgetNames, token, "a widget's name");
}

template <> MenuEntry valueOf<MenuEntry>(const Token &token) {
    return named(menuNames, token, "a menu entry's name");
}

Value valueFor(MemberType type, const Token &token) {
    switch (type) {
    case MemberType::Boolean:
        return valueOf<bool>(token);
    case MemberType::String:
        return valueOf<std::string>(token);
    case MemberType::Font:
        return fontOf(valueOf<std::string>(token));
    case MemberType::Colour:
        return colourOf(token);
    default:
        break;
    }
    for (const Enumeration &enumeration : enumerations()) {
        if (enumeration.name != nameOf(type))
            continue;
        for (const EnumerationMember &member : enumeration.members) {
            if (token.is(member.name))
                return member.value;
        }
    }
    return valueOf<std::int32_t>(token);
}

std::string shown(MemberType type, const Value &value) {
    if (type == MemberType::String)
        return inQuotes(value.toText());
    if (type != MemberType::Colour)
        return value.toText();
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "&H%06X", value.toColour().value);
    return text.data();
}

std::string shown(MenuEntry value) { return nameIn(menuNames, value); }

std::string shown(WidgetId value) { return nameIn(widgetNames, value); }

} // namespace tablio::scenario
