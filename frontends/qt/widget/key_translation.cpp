#include "widget/key_translation.h"

#include <algorithm>
#include <span>

namespace tablio::qt {

namespace {

struct KeyName {
    int qtKey;
    KeyCode code;
};

constexpr KeyName namedKeys[] = {
    {Qt::Key_Backspace, Key::Back},
    {Qt::Key_Tab, Key::Tab},
    {Qt::Key_Backtab, Key::Tab},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, Key::Enter},
    {Qt::Key_Enter, Key::Enter},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, Key::Escape},
    {Qt::Key_Space, Key::Space},
    {Qt::Key_PageUp, Key::PageUp},
    {Qt::Key_PageDown, Key::PageDown},
    {Qt::Key_End, Key::End},
    {Qt::Key_Home, Key::Home},
    {Qt::Key_Left, Key::Left},
    {Qt::Key_Up, Key::Up},
    {Qt::Key_Right, Key::Right},
    {Qt::Key_Down, Key::Down},
    {Qt::Key_Insert, Key::Insert},
    {Qt::Key_Delete, Key::Delete},
    {Qt::Key_Menu, Key::Menu},
};

/// Punctuation has codes of its own: its ASCII codes are those of cursor keys and of Delete.
constexpr KeyName punctuationKeys[] = {
    {Qt::Key_Semicolon, 186},    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},         {Qt::Key_Comma, 188},      {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},        {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},      {Qt::Key_Slash, 191},      {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},    {Qt::Key_Backslash, 220},  {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
};

constexpr KeyName keypadKeys[] = {
    {Qt::Key_Asterisk, 106},        {Qt::Key_Plus, 107},           {Qt::Key_Minus, 109},
    {Qt::Key_Period, Key::Decimal}, {Qt::Key_Comma, Key::Decimal}, {Qt::Key_Slash, 111},
};

/// A key that types a character but has no code of its own. It needs some code, because a host
/// answers 0 to swallow a key.
constexpr KeyCode unnamedKey = 231;

KeyCode lookUp(std::span<const KeyName> names, int key) {
    const auto found = std::ranges::find(names, key, &KeyName::qtKey);
    return found != names.end() ? found->code : KeyCode{0};
}

KeyCode codeOf(const QKeyEvent &event) {
    const int key = event.key();
    if (const KeyCode code = lookUp(namedKeys, key); code != 0)
        return code;
    const bool isDigit = key >= Qt::Key_0 && key <= Qt::Key_9;
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (isDigit)
            return static_cast<KeyCode>(96 + key - Qt::Key_0);
        if (const KeyCode code = lookUp(keypadKeys, key); code != 0)
            return code;
    }
    if (isDigit || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<KeyCode>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<KeyCode>(112 + key - Qt::Key_F1);
    // A scanner or a keyboard that ends its lines with a line feed means Enter.
    if (event.text() == QLatin1String("\n"))
        return Key::Enter;
    return lookUp(punctuationKeys, key);
}

/// Ctrl and Alt together are what some platforms make of AltGr, which types characters.
bool typesCharacters(Qt::KeyboardModifiers modifiers) {
    const Qt::KeyboardModifiers command =
        modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return command == Qt::NoModifier || command == (Qt::ControlModifier | Qt::AltModifier);
}

std::u32string charactersOf(const QKeyEvent &event) {
    if (!typesCharacters(event.modifiers()))
        return {};
    if (event.key() == Qt::Key_Backspace)
        return {static_cast<char32_t>(Key::Back)};
    std::u32string characters;
    for (const uint character : event.text().toUcs4()) {
        if (character >= U' ' && character != 0x7F)
            characters += static_cast<char32_t>(character);
    }
    return characters;
}

} // namespace

Keystroke keystroke(const QKeyEvent &event) {
    Keystroke result;
    result.characters = charactersOf(event);
    result.code = codeOf(event);
    if (result.code == 0 && !result.characters.empty())
        result.code = unnamedKey;
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (modifiers.testFlag(Qt::ShiftModifier))
        result.shift |= Shift::Shift;
    if (modifiers.testFlag(Qt::ControlModifier))
        result.shift |= Shift::Ctrl;
    if (modifiers.testFlag(Qt::AltModifier))
        result.shift |= Shift::Alt;
    return result;
}

} // namespace tablio::qt
